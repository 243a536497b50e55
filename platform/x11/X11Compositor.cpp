#include "platform/x11/X11Compositor.h"

#include <xcb/xfixes.h>

#include <string>

namespace quillary {

X11Compositor::X11Compositor(X11Connection& server) : connection(server) {
    auto* xcb = connection.xcb();
    const std::string name = "_NET_WM_CM_S" + std::to_string(connection.screenNumber());
    const auto atom = connection.reply(
        xcb_intern_atom_reply, xcb_intern_atom(xcb, 0, static_cast<std::uint16_t>(name.size()), name.data()));
    const auto* fixes = xcb_get_extension_data(xcb, &xcb_xfixes_id);
    if (!atom || fixes == nullptr || fixes->present == 0 ||
        !connection.reply(xcb_xfixes_query_version_reply, xcb_xfixes_query_version(xcb, 2, 0))) {
        return;
    }
    selection = atom->atom;
    selectionEvent = fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY;
    xcb_xfixes_select_selection_input(xcb, connection.root(), selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    connect(&connection, &X11Connection::eventReceived, this, &X11Compositor::handleEvent);
    const auto owner =
        connection.reply(xcb_get_selection_owner_reply, xcb_get_selection_owner(xcb, selection));
    running = owner && owner->owner != XCB_WINDOW_NONE;
}

void X11Compositor::handleEvent(const xcb_generic_event_t* event) {
    if (eventKind(event) != selectionEvent) {
        return;
    }
    const auto* notify = eventAs<xcb_xfixes_selection_notify_event_t>(event);
    if (notify->selection == selection) {
        setRunning(notify->subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER &&
                   notify->owner != XCB_WINDOW_NONE);
    }
}

void X11Compositor::setRunning(bool now) {
    if (now != running) {
        running = now;
        Q_EMIT changed();
    }
}

} // namespace quillary
