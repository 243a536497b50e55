#include "platform/x11/X11Screens.h"

#include "platform/linux/screens/ScreenIdentity.h"
#include "platform/x11/X11ClientList.h"
#include "platform/x11/X11Monitor.h"
#include "platform/x11/X11Property.h"

#include <QGuiApplication>
#include <QScreen>

#include <xcb/randr.h>

#include <algorithm>
#include <limits>

namespace quillary {

namespace {

constexpr std::uint32_t partialBytes = 12 * 4;
constexpr std::uint32_t wholeBytes = 4 * 4;

double scaleOf(const X11Monitor& monitor) {
    const auto name = QString::fromStdString(monitor.name);
    for (const auto* screen : QGuiApplication::screens()) {
        if (screen->name() == name) {
            return screen->devicePixelRatio();
        }
    }
    return qGuiApp->devicePixelRatio();
}

std::string displayName(const X11Monitor& monitor) {
    return monitor.edid && !monitor.edid->monitorName.empty() ? monitor.edid->monitorName : monitor.name;
}

} // namespace

X11Screens::X11Screens(X11Connection& connection, X11ClientList& clients)
    : m_connection(connection), m_clients(clients) {
    const auto* randr = xcb_get_extension_data(m_connection.xcb(), &xcb_randr_id);
    if (randr != nullptr && randr->present != 0 &&
        m_connection.reply(xcb_randr_query_version_reply,
                           xcb_randr_query_version(m_connection.xcb(), 1, 5))) {
        m_randrEvent = randr->first_event;
        xcb_randr_select_input(m_connection.xcb(), m_connection.root(),
                               XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                                   XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE |
                                   XCB_RANDR_NOTIFY_MASK_OUTPUT_PROPERTY);
    }
    connect(&m_connection, &X11Connection::eventReceived, this, &X11Screens::handleEvent);
    connect(&m_connection, &X11Connection::settled, this, &X11Screens::handleSettled);
    connect(&m_clients, &X11ClientList::changed, this, &X11Screens::handleClients);
    readMonitors();
    handleClients();
    update();
    followQtScreens();
}

X11Screens::~X11Screens() = default;

QRect X11Screens::frameNear(QPoint point) const {
    QRect nearest;
    int least = std::numeric_limits<int>::max();
    for (const auto& info : m_list) {
        const QRect frame = info.frame.toRect();
        const QPoint inside(std::clamp(point.x(), frame.left(), frame.right()),
                            std::clamp(point.y(), frame.top(), frame.bottom()));
        if (const int distance = (point - inside).manhattanLength(); distance < least) {
            least = distance;
            nearest = frame;
        }
    }
    return nearest;
}

// Qt may process a new monitor or scale later than we do.
void X11Screens::followQtScreens() {
    const auto follow = [this](QScreen* screen) {
        connect(screen, &QScreen::geometryChanged, this, &X11Screens::update);
        connect(screen, &QScreen::logicalDotsPerInchChanged, this, &X11Screens::update);
    };
    for (auto* screen : QGuiApplication::screens()) {
        follow(screen);
    }
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this, follow](QScreen* screen) {
        follow(screen);
        update();
    });
}

void X11Screens::handleEvent(const xcb_generic_event_t* event) {
    const int kind = eventKind(event);
    if (kind == XCB_PROPERTY_NOTIFY) {
        const auto* notify = eventAs<xcb_property_notify_event_t>(event);
        if ((notify->atom == m_connection.atoms().netWmStrut ||
             notify->atom == m_connection.atoms().netWmStrutPartial) &&
            m_strutWindows.contains(notify->window)) {
            m_staleStruts.insert(notify->window);
        }
        return;
    }
    // Some servers send no RandR event for a change of user-defined monitors, only the root window's event.
    const bool rootChanged = kind == XCB_CONFIGURE_NOTIFY &&
                             eventAs<xcb_configure_notify_event_t>(event)->window == m_connection.root();
    const bool randrChanged = m_randrEvent >= 0 && (kind == m_randrEvent + XCB_RANDR_SCREEN_CHANGE_NOTIFY ||
                                                    kind == m_randrEvent + XCB_RANDR_NOTIFY);
    m_monitorsStale = m_monitorsStale || rootChanged || randrChanged;
}

void X11Screens::handleSettled() {
    if (!m_monitorsStale && m_staleStruts.empty()) {
        return;
    }
    if (std::exchange(m_monitorsStale, false)) {
        readMonitors();
    }
    const std::vector<xcb_window_t> windows(m_staleStruts.begin(), m_staleStruts.end());
    m_staleStruts.clear();
    readStruts(windows);
    update();
}

void X11Screens::handleClients() {
    std::unordered_set<xcb_window_t> now;
    std::vector<xcb_window_t> added;
    for (const auto window : m_clients.windows()) {
        // Our own docks do not make room for one another.
        if (!X11Connection::isOwnWindow(window) && now.insert(window).second &&
            !m_strutWindows.contains(window)) {
            added.push_back(window);
        }
    }
    m_strutWindows = std::move(now);
    std::erase_if(m_struts, [this](const auto& entry) { return !m_strutWindows.contains(entry.first); });
    readStruts(added);
    update();
}

void X11Screens::readStruts(const std::vector<xcb_window_t>& windows) {
    struct Request {
        xcb_window_t window;
        xcb_get_property_cookie_t partial;
        xcb_get_property_cookie_t whole;
    };
    std::vector<Request> requests;
    requests.reserve(windows.size());
    for (const auto window : windows) {
        requests.push_back(
            {window,
             requestProperty(m_connection, window, m_connection.atoms().netWmStrutPartial, partialBytes),
             requestProperty(m_connection, window, m_connection.atoms().netWmStrut, wholeBytes)});
    }
    for (const auto& request : requests) {
        const auto partial = readProperty(m_connection, request.partial).numbers;
        const auto whole = readProperty(m_connection, request.whole).numbers;
        m_struts.erase(request.window);
        if (const auto strut = StrutArithmetic::parse(partial, whole)) {
            m_struts.emplace(request.window, *strut);
        }
    }
}

void X11Screens::readMonitors() {
    m_monitors = X11Monitor::readAll(m_connection);
    const auto root =
        m_connection.reply(xcb_get_geometry_reply, xcb_get_geometry(m_connection.xcb(), m_connection.root()));
    if (root) {
        m_desktop = QSize(root->width, root->height);
    }
}

void X11Screens::update() {
    std::vector<ScreenIdentity::Monitor> identities;
    for (const auto& monitor : m_monitors) {
        identities.push_back({monitor.name, monitor.edid ? monitor.edid->identity() : std::nullopt});
    }
    const auto uuids = ScreenIdentity::uuids(identities);
    std::vector<Strut> reserved;
    for (const auto& [window, strut] : m_struts) {
        reserved.push_back(strut);
    }

    std::vector<NativeScreen> natives;
    std::vector<ScreenInfo> now;
    for (std::size_t i = 0; i < m_monitors.size(); ++i) {
        const auto& monitor = m_monitors[i];
        const NativeScreen native{monitor.geometry, scaleOf(monitor)};
        natives.push_back(native);
        now.push_back({.displayNumber = ScreenIdentity::displayNumber(monitor.name),
                       .uuid = uuids[i],
                       .name = displayName(monitor),
                       .frame = native.toPoints(monitor.geometry),
                       .visibleFrame = native.toPoints(
                           StrutArithmetic::visibleFrame(monitor.geometry, m_desktop, reserved)),
                       .scale = native.scale});
    }
    m_nativeScreens = std::move(natives);
    if (now != m_list) {
        m_list = std::move(now);
        Q_EMIT changed();
    }
}

} // namespace quillary
