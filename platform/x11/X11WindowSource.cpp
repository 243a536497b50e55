#include "platform/x11/X11WindowSource.h"

#include "platform/Scheduler.h"
#include "platform/x11/X11ClientList.h"
#include "platform/x11/X11Message.h"
#include "platform/x11/X11Property.h"

#include <algorithm>

namespace quillary {

namespace {

// EWMH: the request comes from a pager or dock, that is, from the user.
constexpr std::uint32_t sourceUser = 2;
constexpr std::uint32_t allDesktops = 0xFFFFFFFF;
constexpr std::uint32_t maxSupportedBytes = 1024 * 4;
constexpr std::uint32_t maxProtocolBytes = 64 * 4;

} // namespace

X11WindowSource::X11WindowSource(X11Connection& server, X11ClientList& list, const X11Screens& screens,
                                 Scheduler& clock)
    : connection(server), clients(list), scheduler(clock), reader(server), fullScreen(server, screens) {
    connect(&fullScreen, &X11FullScreenWatch::changed, this, &X11WindowSource::fullScreenChanged);
    connect(&connection, &X11Connection::eventReceived, this, &X11WindowSource::handleEvent);
    connect(&connection, &X11Connection::settled, this, &X11WindowSource::handleSettled);
    connect(&clients, &X11ClientList::changed, this, [this] {
        updateWindows();
        updateActive();
    });
    connect(&clients, &X11ClientList::managedChanged, this, &X11WindowSource::updateActive);
    updateWindows();
    updateActive();
}

X11WindowSource::~X11WindowSource() = default;

std::vector<WindowInfo> X11WindowSource::windows() const {
    return known;
}

std::vector<std::uint64_t> X11WindowSource::stackingOrder() const {
    std::vector<std::uint64_t> order;
    for (const auto window : clients.stackingOrder()) {
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
    if (notify->window == connection.root()) {
        activeStale = activeStale || notify->atom == connection.atoms().netActiveWindow;
    } else if (reader.concerns(notify->atom)) {
        stale.insert(notify->window);
    }
}

void X11WindowSource::handleSettled() {
    if (!stale.empty()) {
        updateWindows();
    }
    if (activeStale) {
        activeStale = false;
        updateActive();
    }
}

void X11WindowSource::updateWindows() {
    std::unordered_map<xcb_window_t, WindowInfo> infos;
    for (const auto& info : known) {
        const auto window = static_cast<xcb_window_t>(info.id);
        if (!stale.contains(window)) {
            infos.emplace(window, info);
        }
    }
    stale.clear();
    std::vector<xcb_window_t> unread;
    for (const auto window : clients.windows()) {
        if (!infos.contains(window) && !X11Connection::isOwnWindow(window)) {
            unread.push_back(window);
        }
    }
    infos.merge(reader.read(unread));

    std::vector<WindowInfo> now;
    for (const auto window : clients.windows()) {
        if (const auto found = infos.find(window); found != infos.end()) {
            now.push_back(found->second);
        }
    }
    if (now != known) {
        known = std::move(now);
        Q_EMIT windowsChanged();
    }
}

void X11WindowSource::updateActive() {
    xcb_window_t window = XCB_WINDOW_NONE;
    if (clients.managed()) {
        const auto cookie =
            requestProperty(connection, connection.root(), connection.atoms().netActiveWindow, 4);
        window = readProperty(connection, cookie).firstNumber();
    }
    // Some window managers go on naming a window that has gone.
    const auto& managed = clients.windows();
    if (std::find(managed.begin(), managed.end(), window) == managed.end()) {
        window = XCB_WINDOW_NONE;
    }
    if (window != XCB_WINDOW_NONE) {
        loseFocus.reset();
        setFocused(window);
    } else if (focused != XCB_WINDOW_NONE && !loseFocus) {
        loseFocus = scheduler.after(focusGap, [this] {
            loseFocus.reset();
            setFocused(XCB_WINDOW_NONE);
        });
    }
}

void X11WindowSource::setFocused(xcb_window_t window) {
    focused = window;
    std::optional<std::uint64_t> foreign;
    if (window != XCB_WINDOW_NONE && !X11Connection::isOwnWindow(window)) {
        foreign = window;
    }
    if (foreign != active) {
        active = foreign;
        Q_EMIT activeWindowChanged();
    }
    fullScreen.follow(focused);
}

void X11WindowSource::activate(std::uint64_t id) {
    const auto window = static_cast<xcb_window_t>(id);
    showDesktopOf(window);
    X11Message::toWindowManager(connection, window, connection.atoms().netActiveWindow, sourceUser,
                                XCB_CURRENT_TIME);
}

void X11WindowSource::showDesktopOf(xcb_window_t window) {
    const auto& atoms = connection.atoms();
    const auto ofWindow = requestProperty(connection, window, atoms.netWmDesktop, 4);
    const auto current = requestProperty(connection, connection.root(), atoms.netCurrentDesktop, 4);
    const auto wanted = readProperty(connection, ofWindow).numbers;
    const auto shown = readProperty(connection, current).numbers;
    // Some window managers refuse to activate a window of another desktop.
    if (!wanted.empty() && !shown.empty() && wanted.front() != shown.front() &&
        wanted.front() != allDesktops) {
        X11Message::toWindowManager(connection, connection.root(), atoms.netCurrentDesktop, wanted.front(),
                                    XCB_CURRENT_TIME);
    }
}

void X11WindowSource::close(std::uint64_t id) {
    const auto window = static_cast<xcb_window_t>(id);
    const auto& atoms = connection.atoms();
    if (clients.managed() && wmSupports(atoms.netCloseWindow)) {
        X11Message::toWindowManager(connection, window, atoms.netCloseWindow, XCB_CURRENT_TIME, sourceUser);
    } else if (acceptsDelete(window)) {
        X11Message::toClient(connection, window, atoms.wmProtocols, atoms.wmDeleteWindow, XCB_CURRENT_TIME);
    }
}

bool X11WindowSource::wmSupports(xcb_atom_t feature) const {
    const auto cookie =
        requestProperty(connection, connection.root(), connection.atoms().netSupported, maxSupportedBytes);
    const auto features = readProperty(connection, cookie).numbers;
    return std::find(features.begin(), features.end(), feature) != features.end();
}

bool X11WindowSource::acceptsDelete(xcb_window_t window) const {
    const auto cookie = requestProperty(connection, window, connection.atoms().wmProtocols, maxProtocolBytes);
    const auto protocols = readProperty(connection, cookie).numbers;
    return std::find(protocols.begin(), protocols.end(), connection.atoms().wmDeleteWindow) !=
           protocols.end();
}

} // namespace quillary
