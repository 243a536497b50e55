#pragma once

#include <xcb/xcb.h>

namespace quillary::test::KeyboardMap {

/// The key that makes the symbol on the unshifted layout; 0 for no symbol, or when no key makes it.
[[nodiscard]] xcb_keycode_t keycode(xcb_connection_t* connection, xcb_keysym_t symbol);

} // namespace quillary::test::KeyboardMap
