#include "platform/x11/X11EventMask.h"

#include "platform/x11/XcbPointer.h"

#include <xcb/xinput.h>

#include <cstddef>
#include <cstring>
#include <vector>

namespace quillary {

namespace {

void leaveOutCoreMotion(xcb_connection_t* connection, xcb_window_t window) {
    const XcbPointer<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection, xcb_get_window_attributes(connection, window), nullptr));
    if (attributes) {
        const std::uint32_t mask =
            attributes->your_event_mask &
            ~static_cast<std::uint32_t>(XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_POINTER_MOTION_HINT |
                                        XCB_EVENT_MASK_BUTTON_MOTION);
        xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &mask);
    }
}

void leaveOutExtendedMotion(xcb_connection_t* connection, xcb_window_t window) {
    const XcbPointer<xcb_input_xi_get_selected_events_reply_t> selected(
        xcb_input_xi_get_selected_events_reply(
            connection, xcb_input_xi_get_selected_events(connection, window), nullptr));
    if (!selected) {
        return;
    }
    for (auto masks = xcb_input_xi_get_selected_events_masks_iterator(selected.get()); masks.rem > 0;
         xcb_input_event_mask_next(&masks)) {
        const std::size_t words = masks.data->mask_len;
        std::vector<std::byte> request(sizeof(xcb_input_event_mask_t) + words * sizeof(std::uint32_t));
        std::memcpy(request.data(), masks.data, sizeof(xcb_input_event_mask_t));
        for (std::size_t i = 0; i < words; ++i) {
            std::uint32_t word = xcb_input_event_mask_mask(masks.data)[i];
            if (i == 0) {
                word &= ~static_cast<std::uint32_t>(XCB_INPUT_XI_EVENT_MASK_MOTION);
            }
            std::memcpy(request.data() + sizeof(xcb_input_event_mask_t) + i * sizeof word, &word,
                        sizeof word);
        }
        xcb_input_xi_select_events(connection, window, 1,
                                   reinterpret_cast<const xcb_input_event_mask_t*>(request.data()));
    }
}

} // namespace

void X11EventMask::leaveOutMotion(xcb_connection_t* connection, xcb_window_t window) {
    // Both, because the server falls back to the core protocol for events that the extension's mask leaves
    // out.
    leaveOutExtendedMotion(connection, window);
    leaveOutCoreMotion(connection, window);
    xcb_flush(connection);
}

} // namespace quillary
