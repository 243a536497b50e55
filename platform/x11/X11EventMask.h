#pragma once

#include <xcb/xcb.h>

namespace quillary {

/// What a client asked the server to send it of the input devices, by the core protocol and by the X Input
/// Extension 2.
namespace X11EventMask {

/// Takes movements of the pointer out of what this connection gets for the window; everything else stays. A
/// window created a moment ago on this connection is known.
void leaveOutMotion(xcb_connection_t* connection, xcb_window_t window);

} // namespace X11EventMask

} // namespace quillary
