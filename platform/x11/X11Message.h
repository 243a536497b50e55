#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace quillary {

class X11Connection;

/// Client messages with two numbers (ICCCM 4.1, EWMH). They are sent immediately, and lost when the window no
/// longer exists.
namespace X11Message {

/// Sends a message to the client that created the window.
void toClient(X11Connection& connection, xcb_window_t window, xcb_atom_t type, std::uint32_t first,
              std::uint32_t second);
/// Sends a message about the window to the window manager.
void toWindowManager(X11Connection& connection, xcb_window_t window, xcb_atom_t type, std::uint32_t first,
                     std::uint32_t second);

} // namespace X11Message

} // namespace quillary
