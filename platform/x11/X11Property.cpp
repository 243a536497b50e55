#include "platform/x11/X11Property.h"

namespace quillary {

xcb_get_property_cookie_t requestProperty(X11Connection& connection, xcb_window_t window, xcb_atom_t property,
                                          std::uint32_t maxBytes) {
    return xcb_get_property(connection.xcb(), 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0,
                            (maxBytes + 3) / 4);
}

X11Property readProperty(X11Connection& connection, xcb_get_property_cookie_t cookie) {
    X11Property result;
    const auto reply = connection.reply(xcb_get_property_reply, cookie);
    if (!reply) {
        return result;
    }
    result.windowExists = true;
    const void* value = xcb_get_property_value(reply.get());
    const auto bytes = static_cast<std::size_t>(std::max(0, xcb_get_property_value_length(reply.get())));
    if (reply->format == 32) {
        const auto* items = static_cast<const std::uint32_t*>(value);
        result.numbers.assign(items, items + bytes / sizeof(std::uint32_t));
    } else if (reply->format == 8) {
        result.bytes.assign(static_cast<const char*>(value), bytes);
    }
    return result;
}

} // namespace quillary
