#pragma once

#include <xcb/xcb.h>

#include <optional>

/// The present time of the X server's clock, in milliseconds. A client learns it from the event of a property
/// change, which may be one that appends nothing (ICCCM 2.1).
namespace quillary::X11ServerTime {

/// Requests the time by a change of the window's WM_NAME. The connection must have selected the window's
/// property changes.
void request(xcb_connection_t* connection, xcb_window_t window);

/// The time, when the event is the server's answer to a request for this window.
[[nodiscard]] std::optional<xcb_timestamp_t> answer(const xcb_generic_event_t* event, xcb_window_t window);

} // namespace quillary::X11ServerTime
