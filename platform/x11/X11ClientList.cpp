#include "platform/x11/X11ClientList.h"

#include "platform/Scheduler.h"
#include "platform/x11/X11Property.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace quillary {

namespace {

// Far more windows than a session has: untrusted lists need a bound.
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

X11ClientList::X11ClientList(X11Connection& connection, Scheduler& scheduler)
    : m_connection(connection), m_scheduler(scheduler) {
    select(m_connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    connect(&m_connection, &X11Connection::eventReceived, this, &X11ClientList::handleEvent);
    connect(&m_connection, &X11Connection::settled, this, &X11ClientList::handleSettled);
    update();
}

X11ClientList::~X11ClientList() = default;

std::vector<xcb_window_t> X11ClientList::stackingOrder() const {
    return managed() ? readWindows(m_connection, m_connection.atoms().netClientListStacking)
                     : std::vector<xcb_window_t>{};
}

void X11ClientList::select(xcb_window_t window, std::uint32_t mask) {
    xcb_change_window_attributes(m_connection.xcb(), window, XCB_CW_EVENT_MASK, &mask);
}

void X11ClientList::handleEvent(const xcb_generic_event_t* event) {
    if (eventKind(event) == XCB_PROPERTY_NOTIFY) {
        const auto* notify = eventAs<xcb_property_notify_event_t>(event);
        m_stale = m_stale || (notify->window == m_connection.root() &&
                              (notify->atom == m_connection.atoms().netClientList ||
                               notify->atom == m_connection.atoms().netSupportingWmCheck));
    } else if (eventKind(event) == XCB_DESTROY_NOTIFY) {
        const auto window = eventAs<xcb_destroy_notify_event_t>(event)->window;
        if (window == m_checkWindow) {
            m_stale = true;
        } else if (!managed() && std::erase(m_windows, window) > 0) {
            // Without a window manager there is no list to read again.
            Q_EMIT changed();
        }
    }
}

void X11ClientList::handleSettled() {
    if (m_stale) {
        m_stale = false;
        update();
    }
}

xcb_window_t X11ClientList::readCheckWindow() {
    const auto property = m_connection.atoms().netSupportingWmCheck;
    const auto window =
        readProperty(m_connection, requestProperty(m_connection, m_connection.root(), property, 4))
            .firstNumber();
    if (window == XCB_WINDOW_NONE) {
        return XCB_WINDOW_NONE;
    }
    // Select before reading: if the window is destroyed in between, the event still arrives.
    if (window != m_checkWindow) {
        select(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
    const auto itself = readProperty(m_connection, requestProperty(m_connection, window, property, 4));
    return itself.firstNumber() == window ? window : xcb_window_t{XCB_WINDOW_NONE};
}

void X11ClientList::update() {
    const bool wasManaged = managed();
    const auto before = std::exchange(m_checkWindow, readCheckWindow());
    if (!managed()) {
        if (wasManaged) {
            m_later = m_scheduler.after(restartGrace, [this] { setWindows({}); });
        }
    } else if (m_checkWindow != before && !m_windows.empty()) {
        // A new window manager adopts the windows one by one. Its first lists would look as if most windows
        // had been closed.
        m_later = m_scheduler.after(adoptionTime, [this] {
            m_later.reset();
            setWindows(readWindows(m_connection, m_connection.atoms().netClientList));
        });
    } else if (!m_later || !wasManaged) {
        m_later.reset();
        setWindows(readWindows(m_connection, m_connection.atoms().netClientList));
    }
    if (managed() != wasManaged) {
        Q_EMIT managedChanged();
    }
}

void X11ClientList::setWindows(std::vector<xcb_window_t> windows) {
    if (windows == m_windows) {
        return;
    }
    const std::unordered_set<xcb_window_t> known(m_windows.begin(), m_windows.end());
    for (const auto window : windows) {
        if (!known.contains(window) && !X11Connection::isOwnWindow(window)) {
            select(window, clientMask);
        }
    }
    m_windows = std::move(windows);
    Q_EMIT changed();
}

} // namespace quillary
