#pragma once

class QWindow;

namespace quillary::X11Grab {

/// Grabs the pointer and the keyboard for a Qt window until it is hidden. Qt does the same when it opens a
/// popup, but continues as if it had succeeded when another client holds a grab. False when another client
/// holds either, or when Qt does not use an X server.
[[nodiscard]] bool take(QWindow& window);

} // namespace quillary::X11Grab
