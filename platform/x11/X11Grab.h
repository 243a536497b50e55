#pragma once

class QWindow;

namespace quillary::X11Grab {

/// Takes pointer and keyboard for a window of the toolkit until it is hidden. The toolkit tries the same when
/// it opens a popup, but goes on as if it had them when another client does. False when one of them is held
/// elsewhere or the window is not on an X server.
[[nodiscard]] bool take(QWindow& window);

} // namespace quillary::X11Grab
