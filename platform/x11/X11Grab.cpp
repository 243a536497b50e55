#include "platform/x11/X11Grab.h"

#include "platform/x11/XcbPointer.h"

#include <QGuiApplication>
#include <QWindow>

#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace quillary::X11Grab {

namespace {

// Qt ignores this reply of the X Input Extension; it only checks the core protocol's.
bool pointerIsTaken(xcb_connection_t* xcb, xcb_window_t window) {
    const XcbPointer<xcb_input_xi_get_client_pointer_reply_t> pointer(xcb_input_xi_get_client_pointer_reply(
        xcb, xcb_input_xi_get_client_pointer(xcb, XCB_WINDOW_NONE), nullptr));
    if (!pointer) {
        return true;
    }
    const std::uint32_t mask = XCB_INPUT_XI_EVENT_MASK_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_BUTTON_RELEASE |
                               XCB_INPUT_XI_EVENT_MASK_MOTION;
    const auto cookie =
        xcb_input_xi_grab_device(xcb, window, XCB_CURRENT_TIME, XCB_CURSOR_NONE, pointer->deviceid,
                                 XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC, 0, 1, &mask);
    const XcbPointer<xcb_input_xi_grab_device_reply_t> reply(
        xcb_input_xi_grab_device_reply(xcb, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

} // namespace

bool take(QWindow& window) {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr && x11->connection() != nullptr &&
           pointerIsTaken(x11->connection(), static_cast<xcb_window_t>(window.winId())) &&
           window.setMouseGrabEnabled(true) && window.setKeyboardGrabEnabled(true);
}

} // namespace quillary::X11Grab
