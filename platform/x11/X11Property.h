#pragma once

#include "platform/x11/X11Connection.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quillary {

/// A request for a window's property, any type. Ask for many first and read them afterwards: one round trip
/// in all. At most `maxBytes` are read; what is longer is cut.
[[nodiscard]] xcb_get_property_cookie_t requestProperty(X11Connection& connection, xcb_window_t window,
                                                        xcb_atom_t property, std::uint32_t maxBytes);

/// What came back. Contents are untrusted.
struct X11Property {
    /// False when the window has gone.
    bool windowExists = false;
    /// The 32-bit items; empty when the property is absent or has another format.
    std::vector<std::uint32_t> numbers;
    /// The bytes; empty when the property is absent or has another format.
    std::string bytes;

    [[nodiscard]] std::uint32_t firstNumber() const { return numbers.empty() ? 0 : numbers.front(); }
};

/// Waits for the reply of requestProperty.
[[nodiscard]] X11Property readProperty(X11Connection& connection, xcb_get_property_cookie_t cookie);

} // namespace quillary
