#include "platform/x11/X11SelectionOwner.h"

#include <xcb/xfixes.h>

namespace quillary {

X11SelectionOwner::X11SelectionOwner(X11Connection& connection, const std::string& name)
    : m_connection(connection) {
    auto* xcb = m_connection.xcb();
    const auto atom = internAtom(xcb, name + "_S" + std::to_string(m_connection.screenNumber()));
    const auto* fixes = xcb_get_extension_data(xcb, &xcb_xfixes_id);
    if (atom == XCB_ATOM_NONE || fixes == nullptr || fixes->present == 0 ||
        !m_connection.reply(xcb_xfixes_query_version_reply, xcb_xfixes_query_version(xcb, 2, 0))) {
        return;
    }
    m_selection = atom;
    m_selectionEvent = fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY;
    xcb_xfixes_select_selection_input(xcb, m_connection.root(), m_selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    connect(&m_connection, &X11Connection::eventReceived, this, &X11SelectionOwner::handleEvent);
    const auto owner =
        m_connection.reply(xcb_get_selection_owner_reply, xcb_get_selection_owner(xcb, m_selection));
    m_present = owner && owner->owner != XCB_WINDOW_NONE;
}

void X11SelectionOwner::handleEvent(const xcb_generic_event_t* event) {
    if (eventKind(event) != m_selectionEvent) {
        return;
    }
    const auto* notify = eventAs<xcb_xfixes_selection_notify_event_t>(event);
    if (notify->selection != m_selection) {
        return;
    }
    const bool now =
        notify->subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER && notify->owner != XCB_WINDOW_NONE;
    if (now != m_present) {
        m_present = now;
        Q_EMIT changed();
    }
}

} // namespace quillary
