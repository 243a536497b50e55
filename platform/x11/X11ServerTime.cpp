#include "platform/x11/X11ServerTime.h"

namespace quillary::X11ServerTime {

void request(xcb_connection_t* connection, xcb_window_t window) {
    xcb_change_property(connection, XCB_PROP_MODE_APPEND, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 0,
                        nullptr);
    xcb_flush(connection);
}

std::optional<xcb_timestamp_t> answer(const xcb_generic_event_t* event, xcb_window_t window) {
    // Events that other clients sent have the bit 0x80 set and are not trusted.
    if (event->response_type != XCB_PROPERTY_NOTIFY) {
        return std::nullopt;
    }
    const auto* notify = reinterpret_cast<const xcb_property_notify_event_t*>(event);
    return notify->window == window && notify->atom == XCB_ATOM_WM_NAME ? std::optional(notify->time)
                                                                        : std::nullopt;
}

} // namespace quillary::X11ServerTime
