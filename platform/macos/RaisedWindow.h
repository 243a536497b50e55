#pragma once

#include <QEvent>

namespace quillary {

/// Whether an event of a window should activate the program: an ordinary window was shown or raised, as
/// opposed to one of a dock, a menu or a tooltip.
[[nodiscard]] bool bringsForward(QEvent::Type event, Qt::WindowType window);

} // namespace quillary
