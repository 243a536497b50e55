#pragma once

#include <QEvent>

namespace quillary {

/// Whether an event of a widget means that the program is to come to the front: an ordinary window was shown
/// or raised. The windows of docks, menus and labels never do that.
[[nodiscard]] bool bringsForward(QEvent::Type event, Qt::WindowType window);

} // namespace quillary
