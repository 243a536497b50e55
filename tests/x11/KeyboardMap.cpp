#include "tests/x11/KeyboardMap.h"

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace quillary::test::KeyboardMap {

xcb_keycode_t keycode(xcb_connection_t* connection, xcb_keysym_t symbol) {
    const auto* setup = xcb_get_setup(connection);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const std::unique_ptr<xcb_get_keyboard_mapping_reply_t, decltype(&std::free)> reply(
        xcb_get_keyboard_mapping_reply(
            connection, xcb_get_keyboard_mapping(connection, setup->min_keycode, count), nullptr),
        &std::free);
    if (!reply || symbol == XCB_NO_SYMBOL) {
        return 0;
    }
    const auto* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        if (symbols[i * reply->keysyms_per_keycode] == symbol) {
            return static_cast<xcb_keycode_t>(setup->min_keycode + i);
        }
    }
    return 0;
}

} // namespace quillary::test::KeyboardMap
