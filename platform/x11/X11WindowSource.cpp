#include "platform/x11/X11WindowSource.h"

#include "platform/Scheduler.h"
#include "platform/x11/X11ClientList.h"
#include "platform/x11/X11Message.h"
#include "platform/x11/X11Property.h"

#include <algorithm>

namespace quillary {

namespace {

// EWMH's source indication of pagers and docks, whose requests are the user's own.
constexpr std::uint32_t sourceUser = 2;
constexpr std::uint32_t allDesktops = 0xFFFFFFFF;
constexpr std::uint32_t maxSupportedBytes = 1024 * 4;
constexpr std::uint32_t maxProtocolBytes = 64 * 4;

} // namespace

X11WindowSource::X11WindowSource(X11Connection& connection, X11ClientList& clients, const X11Screens& screens,
                                 Scheduler& scheduler)
    : m_connection(connection),
      m_clients(clients),
      m_scheduler(scheduler),
      m_reader(connection),
      m_fullScreen(connection, screens) {
    connect(&m_fullScreen, &X11FullScreenWatch::changed, this, &X11WindowSource::fullScreenChanged);
    connect(&m_connection, &X11Connection::eventReceived, this, &X11WindowSource::handleEvent);
    connect(&m_connection, &X11Connection::settled, this, &X11WindowSource::handleSettled);
    connect(&m_clients, &X11ClientList::changed, this, [this] {
        updateWindows();
        updateActive();
    });
    connect(&m_clients, &X11ClientList::managedChanged, this, &X11WindowSource::updateActive);
    updateWindows();
    updateActive();
}

X11WindowSource::~X11WindowSource() = default;

std::vector<WindowInfo> X11WindowSource::windows() const {
    return m_windows;
}

std::vector<std::uint64_t> X11WindowSource::stackingOrder() const {
    std::vector<std::uint64_t> order;
    for (const auto window : m_clients.stackingOrder()) {
        if (!X11Connection::isOwnWindow(window)) {
            order.push_back(window);
        }
    }
    return order;
}

void X11WindowSource::handleEvent(const xcb_generic_event_t* event) {
    if (eventKind(event) != XCB_PROPERTY_NOTIFY) {
        return;
    }
    const auto* notify = eventAs<xcb_property_notify_event_t>(event);
    if (notify->window == m_connection.root()) {
        m_activeStale = m_activeStale || notify->atom == m_connection.atoms().netActiveWindow;
    } else if (m_reader.concerns(notify->atom)) {
        m_stale.insert(notify->window);
    }
}

void X11WindowSource::handleSettled() {
    if (!m_stale.empty()) {
        updateWindows();
    }
    if (m_activeStale) {
        m_activeStale = false;
        updateActive();
    }
}

void X11WindowSource::updateWindows() {
    std::unordered_map<xcb_window_t, WindowInfo> infos;
    for (const auto& info : m_windows) {
        const auto window = static_cast<xcb_window_t>(info.id);
        if (!m_stale.contains(window)) {
            infos.emplace(window, info);
        }
    }
    m_stale.clear();
    std::vector<xcb_window_t> unread;
    for (const auto window : m_clients.windows()) {
        if (!infos.contains(window) && !X11Connection::isOwnWindow(window)) {
            unread.push_back(window);
        }
    }
    infos.merge(m_reader.read(unread));

    std::vector<WindowInfo> now;
    for (const auto window : m_clients.windows()) {
        if (const auto found = infos.find(window); found != infos.end()) {
            now.push_back(found->second);
        }
    }
    if (now != m_windows) {
        m_windows = std::move(now);
        Q_EMIT windowsChanged();
    }
}

void X11WindowSource::updateActive() {
    xcb_window_t window = XCB_WINDOW_NONE;
    if (m_clients.managed()) {
        const auto cookie =
            requestProperty(m_connection, m_connection.root(), m_connection.atoms().netActiveWindow, 4);
        window = readProperty(m_connection, cookie).firstNumber();
    }
    // Some window managers keep naming a window after it was destroyed.
    const auto& managed = m_clients.windows();
    if (std::ranges::find(managed, window) == managed.end()) {
        window = XCB_WINDOW_NONE;
    }
    if (window != XCB_WINDOW_NONE) {
        m_loseFocus.reset();
        setFocused(window);
    } else if (m_focused != XCB_WINDOW_NONE && !m_loseFocus) {
        m_loseFocus = m_scheduler.after(focusGap, [this] {
            m_loseFocus.reset();
            setFocused(XCB_WINDOW_NONE);
        });
    }
}

void X11WindowSource::setFocused(xcb_window_t window) {
    m_focused = window;
    const bool own = window != XCB_WINDOW_NONE && X11Connection::isOwnWindow(window);
    std::optional<std::uint64_t> foreign;
    if (window != XCB_WINDOW_NONE && !own) {
        foreign = window;
    }
    if (foreign != m_activeWindow || own != m_ownWindowActive) {
        m_activeWindow = foreign;
        m_ownWindowActive = own;
        Q_EMIT activeWindowChanged();
    }
    m_fullScreen.follow(m_focused);
}

void X11WindowSource::activate(std::uint64_t id) {
    const auto window = static_cast<xcb_window_t>(id);
    showDesktopOf(window);
    X11Message::toWindowManager(m_connection, window, m_connection.atoms().netActiveWindow, sourceUser,
                                XCB_CURRENT_TIME);
}

void X11WindowSource::showDesktopOf(xcb_window_t window) {
    const auto& atoms = m_connection.atoms();
    const auto ofWindow = requestProperty(m_connection, window, atoms.netWmDesktop, 4);
    const auto current = requestProperty(m_connection, m_connection.root(), atoms.netCurrentDesktop, 4);
    const auto wanted = readProperty(m_connection, ofWindow).numbers;
    const auto shown = readProperty(m_connection, current).numbers;
    // Some window managers refuse to activate a window on another desktop.
    if (!wanted.empty() && !shown.empty() && wanted.front() != shown.front() &&
        wanted.front() != allDesktops) {
        X11Message::toWindowManager(m_connection, m_connection.root(), atoms.netCurrentDesktop,
                                    wanted.front(), XCB_CURRENT_TIME);
    }
}

void X11WindowSource::close(std::uint64_t id) {
    const auto window = static_cast<xcb_window_t>(id);
    const auto& atoms = m_connection.atoms();
    if (m_clients.managed() && wmSupports(atoms.netCloseWindow)) {
        X11Message::toWindowManager(m_connection, window, atoms.netCloseWindow, XCB_CURRENT_TIME, sourceUser);
    } else if (acceptsDelete(window)) {
        X11Message::toClient(m_connection, window, atoms.wmProtocols, atoms.wmDeleteWindow, XCB_CURRENT_TIME);
    }
}

bool X11WindowSource::wmSupports(xcb_atom_t feature) const {
    const auto cookie = requestProperty(m_connection, m_connection.root(), m_connection.atoms().netSupported,
                                        maxSupportedBytes);
    const auto features = readProperty(m_connection, cookie).numbers;
    return std::ranges::find(features, feature) != features.end();
}

bool X11WindowSource::acceptsDelete(xcb_window_t window) const {
    const auto cookie =
        requestProperty(m_connection, window, m_connection.atoms().wmProtocols, maxProtocolBytes);
    const auto protocols = readProperty(m_connection, cookie).numbers;
    return std::ranges::find(protocols, m_connection.atoms().wmDeleteWindow) != protocols.end();
}

} // namespace quillary
