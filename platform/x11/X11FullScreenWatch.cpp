#include "platform/x11/X11FullScreenWatch.h"

#include "platform/x11/X11Property.h"
#include "platform/x11/X11Screens.h"

#include <algorithm>
#include <utility>

namespace quillary {

namespace {

constexpr std::uint32_t maxStateBytes = 64 * 4;

} // namespace

X11FullScreenWatch::X11FullScreenWatch(X11Connection& server, const X11Screens& screenList)
    : connection(server), screens(screenList) {
    connect(&connection, &X11Connection::eventReceived, this, &X11FullScreenWatch::handleEvent);
    connect(&connection, &X11Connection::settled, this, &X11FullScreenWatch::handleSettled);
    connect(&screens, &X11Screens::changed, this, &X11FullScreenWatch::update);
}

void X11FullScreenWatch::follow(xcb_window_t window) {
    if (window == watched) {
        return;
    }
    watched = window;
    fullScreen = false;
    stateStale = false;
    placeStale = false;
    if (watched != XCB_WINDOW_NONE) {
        if (X11Connection::isOwnWindow(watched)) {
            selectOwn();
        }
        readState();
    }
    update();
}

// The list of windows selects the events of all others. What is selected already must stay so: there is one
// mask for the whole connection.
void X11FullScreenWatch::selectOwn() {
    const auto attributes = connection.reply(xcb_get_window_attributes_reply,
                                             xcb_get_window_attributes(connection.xcb(), watched));
    if (attributes) {
        const std::uint32_t mask =
            attributes->your_event_mask | XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection.xcb(), watched, XCB_CW_EVENT_MASK, &mask);
    }
}

void X11FullScreenWatch::handleEvent(const xcb_generic_event_t* event) {
    if (watched == XCB_WINDOW_NONE) {
        return;
    }
    switch (eventKind(event)) {
    case XCB_PROPERTY_NOTIFY: {
        const auto* notify = eventAs<xcb_property_notify_event_t>(event);
        stateStale =
            stateStale || (notify->window == watched && notify->atom == connection.atoms().netWmState);
        break;
    }
    case XCB_CONFIGURE_NOTIFY:
        placeStale = placeStale || eventAs<xcb_configure_notify_event_t>(event)->window == watched;
        break;
    case XCB_DESTROY_NOTIFY:
        stateStale = stateStale || eventAs<xcb_destroy_notify_event_t>(event)->window == watched;
        break;
    default:
        break;
    }
}

void X11FullScreenWatch::handleSettled() {
    const bool state = std::exchange(stateStale, false);
    const bool moved = std::exchange(placeStale, false);
    if (state) {
        readState();
        update();
    } else if (moved && fullScreen) {
        readPlace();
        update();
    }
}

void X11FullScreenWatch::readState() {
    const auto& atoms = connection.atoms();
    const auto states =
        readProperty(connection, requestProperty(connection, watched, atoms.netWmState, maxStateBytes))
            .numbers;
    fullScreen = std::find(states.begin(), states.end(), atoms.netWmStateFullscreen) != states.end();
    if (fullScreen) {
        readPlace();
    }
}

void X11FullScreenWatch::readPlace() {
    auto* xcb = connection.xcb();
    const auto sizeCookie = xcb_get_geometry(xcb, watched);
    const auto cornerCookie = xcb_translate_coordinates(xcb, watched, connection.root(), 0, 0);
    const auto size = connection.reply(xcb_get_geometry_reply, sizeCookie);
    const auto corner = connection.reply(xcb_translate_coordinates_reply, cornerCookie);
    fullScreen = size && corner;
    if (fullScreen) {
        place = QRect(corner->dst_x, corner->dst_y, size->width, size->height);
    }
}

void X11FullScreenWatch::update() {
    std::optional<QRectF> now;
    if (fullScreen) {
        now = screens.toPoints(place);
    }
    if (now != covered) {
        covered = now;
        Q_EMIT changed();
    }
}

} // namespace quillary
