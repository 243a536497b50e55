#include "platform/x11/X11Compositor.h"

namespace quillary {

X11Compositor::X11Compositor(X11Connection& connection)
    : m_connection(connection), m_owner(connection, "_NET_WM_CM"), m_blurs(offersBlur()) {
    connect(&m_owner, &X11SelectionOwner::changed, this, &X11Compositor::changed);
    connect(&m_connection, &X11Connection::eventReceived, this, &X11Compositor::handleEvent);
}

void X11Compositor::handleEvent(const xcb_generic_event_t* event) {
    if (eventKind(event) != XCB_PROPERTY_NOTIFY) {
        return;
    }
    const auto* notify = eventAs<xcb_property_notify_event_t>(event);
    if (notify->window != m_connection.root() || notify->atom != m_connection.atoms().kdeBlurBehindRegion) {
        return;
    }
    const bool now = notify->state == XCB_PROPERTY_NEW_VALUE;
    if (now != m_blurs) {
        m_blurs = now;
        Q_EMIT changed();
    }
}

bool X11Compositor::offersBlur() const {
    // The property announces blur by its presence; its contents are irrelevant.
    const auto cookie = xcb_get_property(m_connection.xcb(), 0, m_connection.root(),
                                         m_connection.atoms().kdeBlurBehindRegion, XCB_ATOM_ANY, 0, 0);
    const auto answer = m_connection.reply(xcb_get_property_reply, cookie);
    return answer && answer->type != XCB_ATOM_NONE;
}

} // namespace quillary
