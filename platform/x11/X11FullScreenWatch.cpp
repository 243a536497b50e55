#include "platform/x11/X11FullScreenWatch.h"

#include "platform/x11/X11Property.h"
#include "platform/x11/X11Screens.h"

#include <algorithm>
#include <utility>

namespace quillary {

namespace {

constexpr std::uint32_t maxStateBytes = 64 * 4;

} // namespace

X11FullScreenWatch::X11FullScreenWatch(X11Connection& connection, const X11Screens& screens)
    : m_connection(connection), m_screens(screens) {
    connect(&m_connection, &X11Connection::eventReceived, this, &X11FullScreenWatch::handleEvent);
    connect(&m_connection, &X11Connection::settled, this, &X11FullScreenWatch::handleSettled);
    connect(&m_screens, &X11Screens::changed, this, &X11FullScreenWatch::update);
}

void X11FullScreenWatch::follow(xcb_window_t window) {
    if (window == m_watched) {
        return;
    }
    m_watched = window;
    m_fullScreen = false;
    m_stateStale = false;
    m_placeStale = false;
    if (m_watched != XCB_WINDOW_NONE) {
        if (X11Connection::isOwnWindow(m_watched)) {
            selectOwn();
        }
        readState();
    }
    update();
}

// X11ClientList selects the events of all other windows. The mask is extended, because a connection has one
// event mask per window.
void X11FullScreenWatch::selectOwn() {
    const auto attributes = m_connection.reply(xcb_get_window_attributes_reply,
                                               xcb_get_window_attributes(m_connection.xcb(), m_watched));
    if (attributes) {
        const std::uint32_t mask =
            attributes->your_event_mask | XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection.xcb(), m_watched, XCB_CW_EVENT_MASK, &mask);
    }
}

void X11FullScreenWatch::handleEvent(const xcb_generic_event_t* event) {
    if (m_watched == XCB_WINDOW_NONE) {
        return;
    }
    switch (eventKind(event)) {
    case XCB_PROPERTY_NOTIFY: {
        const auto* notify = eventAs<xcb_property_notify_event_t>(event);
        m_stateStale =
            m_stateStale || (notify->window == m_watched && notify->atom == m_connection.atoms().netWmState);
        break;
    }
    case XCB_CONFIGURE_NOTIFY:
        m_placeStale = m_placeStale || eventAs<xcb_configure_notify_event_t>(event)->window == m_watched;
        break;
    case XCB_DESTROY_NOTIFY:
        m_stateStale = m_stateStale || eventAs<xcb_destroy_notify_event_t>(event)->window == m_watched;
        break;
    default:
        break;
    }
}

void X11FullScreenWatch::handleSettled() {
    const bool state = std::exchange(m_stateStale, false);
    const bool moved = std::exchange(m_placeStale, false);
    if (state) {
        readState();
        update();
    } else if (moved && m_fullScreen) {
        readPlace();
        update();
    }
}

void X11FullScreenWatch::readState() {
    const auto& atoms = m_connection.atoms();
    const auto states =
        readProperty(m_connection, requestProperty(m_connection, m_watched, atoms.netWmState, maxStateBytes))
            .numbers;
    m_fullScreen = std::ranges::find(states, atoms.netWmStateFullscreen) != states.end();
    if (m_fullScreen) {
        readPlace();
    }
}

void X11FullScreenWatch::readPlace() {
    auto* xcb = m_connection.xcb();
    const auto sizeCookie = xcb_get_geometry(xcb, m_watched);
    const auto cornerCookie = xcb_translate_coordinates(xcb, m_watched, m_connection.root(), 0, 0);
    const auto size = m_connection.reply(xcb_get_geometry_reply, sizeCookie);
    const auto corner = m_connection.reply(xcb_translate_coordinates_reply, cornerCookie);
    m_fullScreen = size && corner;
    if (m_fullScreen) {
        m_place = QRect(corner->dst_x, corner->dst_y, size->width, size->height);
    }
}

void X11FullScreenWatch::update() {
    std::optional<QRectF> now;
    if (m_fullScreen) {
        now = m_screens.toPoints(m_place);
    }
    if (now != m_frame) {
        m_frame = now;
        Q_EMIT changed();
    }
}

} // namespace quillary
