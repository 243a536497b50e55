#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace quillary {

class X11Connection;

/// Client messages with two numbers (ICCCM 4.1, EWMH): sent at once, lost when their window has gone.
namespace X11Message {

/// To the client that made the window.
void toClient(X11Connection& connection, xcb_window_t window, xcb_atom_t type, std::uint32_t first,
              std::uint32_t second);
/// About the window, to the window manager.
void toWindowManager(X11Connection& connection, xcb_window_t window, xcb_atom_t type, std::uint32_t first,
                     std::uint32_t second);

} // namespace X11Message

} // namespace quillary
