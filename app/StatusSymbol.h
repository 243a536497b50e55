#pragma once

#include <QIcon>

namespace quillary {

/// The program's symbol for status bars: a screen with a dock at its lower edge, drawn for each of the usual
/// sizes so that its lines fall on pixels. Light lines on a dark screen show on any bar.
[[nodiscard]] QIcon statusSymbol();

} // namespace quillary
