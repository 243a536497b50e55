#pragma once

#include "platform/x11/X11Connection.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quillary {

/// Requests a window's property of any type, truncated to `maxBytes`. Requests that are all sent before the
/// first reply is read take one round trip together.
[[nodiscard]] xcb_get_property_cookie_t requestProperty(X11Connection& connection, xcb_window_t window,
                                                        xcb_atom_t property, std::uint32_t maxBytes);

/// The value of a property. Untrusted.
struct X11Property {
    /// False when the window does not exist.
    bool windowExists = false;
    /// The items of a property of format 32; empty otherwise.
    std::vector<std::uint32_t> numbers;
    /// The bytes of a property of format 8; empty otherwise.
    std::string bytes;

    /// The first of the numbers, or 0.
    [[nodiscard]] std::uint32_t firstNumber() const { return numbers.empty() ? 0 : numbers.front(); }
};

/// Waits for the reply to requestProperty.
[[nodiscard]] X11Property readProperty(X11Connection& connection, xcb_get_property_cookie_t cookie);

} // namespace quillary
