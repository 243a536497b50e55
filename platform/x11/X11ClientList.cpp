#include "platform/x11/X11ClientList.h"

#include "platform/Scheduler.h"
#include "platform/x11/X11Property.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace quillary {

namespace {

// More windows than anyone has; a list from outside must have a bound.
constexpr std::uint32_t maxListBytes = 4096 * 4;

constexpr std::uint32_t clientMask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;

std::vector<xcb_window_t> readWindows(X11Connection& connection, xcb_atom_t property) {
    auto windows =
        readProperty(connection, requestProperty(connection, connection.root(), property, maxListBytes))
            .numbers;
    std::unordered_set<xcb_window_t> seen{XCB_WINDOW_NONE};
    std::erase_if(windows, [&](xcb_window_t window) { return !seen.insert(window).second; });
    return windows;
}

} // namespace

X11ClientList::X11ClientList(X11Connection& server, Scheduler& clock) : connection(server), scheduler(clock) {
    select(connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    connect(&connection, &X11Connection::eventReceived, this, &X11ClientList::handleEvent);
    connect(&connection, &X11Connection::settled, this, &X11ClientList::handleSettled);
    update();
}

X11ClientList::~X11ClientList() = default;

std::vector<xcb_window_t> X11ClientList::stackingOrder() const {
    return managed() ? readWindows(connection, connection.atoms().netClientListStacking)
                     : std::vector<xcb_window_t>{};
}

void X11ClientList::select(xcb_window_t window, std::uint32_t mask) {
    xcb_change_window_attributes(connection.xcb(), window, XCB_CW_EVENT_MASK, &mask);
}

void X11ClientList::handleEvent(const xcb_generic_event_t* event) {
    if (eventKind(event) == XCB_PROPERTY_NOTIFY) {
        const auto* notify = eventAs<xcb_property_notify_event_t>(event);
        stale = stale || (notify->window == connection.root() &&
                          (notify->atom == connection.atoms().netClientList ||
                           notify->atom == connection.atoms().netSupportingWmCheck));
    } else if (eventKind(event) == XCB_DESTROY_NOTIFY) {
        const auto window = eventAs<xcb_destroy_notify_event_t>(event)->window;
        if (window == checkWindow) {
            stale = true;
        } else if (!managed() && std::erase(clients, window) > 0) {
            // Nobody else takes it off the list while there is no window manager.
            Q_EMIT changed();
        }
    }
}

void X11ClientList::handleSettled() {
    if (stale) {
        stale = false;
        update();
    }
}

xcb_window_t X11ClientList::readCheckWindow() {
    const auto property = connection.atoms().netSupportingWmCheck;
    const auto window =
        readProperty(connection, requestProperty(connection, connection.root(), property, 4)).firstNumber();
    if (window == XCB_WINDOW_NONE) {
        return XCB_WINDOW_NONE;
    }
    // Selected before it is read: should it go away in between, the event tells.
    if (window != checkWindow) {
        select(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
    const auto itself = readProperty(connection, requestProperty(connection, window, property, 4));
    return itself.firstNumber() == window ? window : xcb_window_t{XCB_WINDOW_NONE};
}

void X11ClientList::update() {
    const bool wasManaged = managed();
    const auto before = std::exchange(checkWindow, readCheckWindow());
    if (!managed()) {
        if (wasManaged) {
            later = scheduler.after(restartGrace, [this] { setWindows({}); });
        }
    } else if (checkWindow != before && !clients.empty()) {
        // A new window manager adopts the windows one by one; its first lists would look like a mass exit.
        later = scheduler.after(adoptionTime, [this] {
            later.reset();
            setWindows(readWindows(connection, connection.atoms().netClientList));
        });
    } else if (!later || !wasManaged) {
        later.reset();
        setWindows(readWindows(connection, connection.atoms().netClientList));
    }
    if (managed() != wasManaged) {
        Q_EMIT managedChanged();
    }
}

void X11ClientList::setWindows(std::vector<xcb_window_t> windows) {
    if (windows == clients) {
        return;
    }
    const std::unordered_set<xcb_window_t> known(clients.begin(), clients.end());
    for (const auto window : windows) {
        if (!known.contains(window) && !X11Connection::isOwnWindow(window)) {
            select(window, clientMask);
        }
    }
    clients = std::move(windows);
    Q_EMIT changed();
}

} // namespace quillary
