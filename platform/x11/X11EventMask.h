#pragma once

#include <xcb/xcb.h>

namespace quillary {

/// The input events that a client has selected for a window, in the core protocol and in the X Input
/// Extension 2.
namespace X11EventMask {

/// Deselects pointer motion on the window for this connection and keeps all other events. The window may have
/// just been created on the same connection.
void leaveOutMotion(xcb_connection_t* connection, xcb_window_t window);

} // namespace X11EventMask

} // namespace quillary
