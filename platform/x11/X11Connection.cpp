#include "platform/x11/X11Connection.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPointer>
#include <QSocketNotifier>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace quillary {

namespace {

// The server assigns each client a range of identifiers, so a window's id identifies the client that created
// it.
struct IdRange {
    std::uint32_t base = 0;
    std::uint32_t mask = 0;

    static IdRange of(xcb_connection_t* connection) {
        const auto* setup = xcb_get_setup(connection);
        return {setup->resource_id_base, setup->resource_id_mask};
    }
    [[nodiscard]] bool contains(xcb_window_t window) const { return (window & ~mask) == base; }
    bool operator==(const IdRange&) const = default;
};

std::vector<X11Connection*>& liveConnections() {
    static std::vector<X11Connection*> connections;
    return connections;
}

} // namespace

std::unique_ptr<X11Connection> X11Connection::open() {
    int screenNumber = 0;
    auto* connection = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        return nullptr;
    }
    // No make_unique: the constructor is private.
    return std::unique_ptr<X11Connection>(
        new X11Connection(connection, screenNumber, rootWindow(connection, screenNumber)));
}

X11Connection::X11Connection(xcb_connection_t* xcb, int screenNumber, xcb_window_t root)
    : m_xcb(xcb),
      m_screenNumber(screenNumber),
      m_root(root),
      m_atoms(X11Atoms::intern(xcb)),
      m_notifier(new QSocketNotifier(xcb_get_file_descriptor(xcb), QSocketNotifier::Read, this)) {
    static const int registered = [] {
        liveConnections();
        return std::atexit([] { quitAtExit(); });
    }();
    static_cast<void>(registered);
    liveConnections().push_back(this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] { dispatch(); });
    if (auto* application = QCoreApplication::instance()) {
        connect(application, &QCoreApplication::aboutToQuit, this, [this] { m_quitSignalled = true; });
    }
}

X11Connection::~X11Connection() {
    std::erase(liveConnections(), this);
    // The notifier must be destroyed before the file descriptor is closed.
    delete m_notifier;
    xcb_disconnect(m_xcb);
}

void X11Connection::flush() {
    xcb_flush(m_xcb);
    checkAlive();
}

void X11Connection::setListening(Listening state) {
    m_notifier->setEnabled(state == Listening::on && m_alive);
    if (m_notifier->isEnabled()) {
        keepQueuedEvents();
    }
}

void X11Connection::keepQueuedEvents() {
    // Waiting for a reply also reads events off the socket, which then does not signal them any more.
    while (auto* event = xcb_poll_for_queued_event(m_xcb)) {
        m_pending.emplace_back(event);
    }
    if (!m_pending.empty() && !m_dispatchPlanned && m_notifier->isEnabled()) {
        m_dispatchPlanned = true;
        QMetaObject::invokeMethod(
            this, [this] { dispatch(); }, Qt::QueuedConnection);
    }
}

int X11Connection::dispatch() {
    m_dispatchPlanned = false;
    while (auto* event = xcb_poll_for_event(m_xcb)) {
        m_pending.emplace_back(event);
    }
    int count = 0;
    const QPointer guard(this);
    while (!m_pending.empty()) {
        const auto event = std::move(m_pending.front());
        m_pending.pop_front();
        if (event->response_type == 0) {
            continue;
        }
        ++count;
        Q_EMIT eventReceived(event.get());
        if (!guard) {
            return count;
        }
    }
    if (count > 0) {
        Q_EMIT settled();
    }
    if (guard) {
        flush();
    }
    return count;
}

void X11Connection::checkAlive() {
    if (!m_alive || xcb_connection_has_error(m_xcb) == 0) {
        return;
    }
    m_alive = false;
    m_notifier->setEnabled(false);
    Q_EMIT lost();
    QCoreApplication::quit();
}

void X11Connection::quitAtExit() {
    // When Qt detects its broken connection before we detect ours, it calls exit(), which would skip the
    // program's cleanup on aboutToQuit.
    const auto unfinished = [](const X11Connection* connection) {
        // Only a read detects that the server is gone. The event itself is no longer needed.
        std::free(xcb_poll_for_event(connection->m_xcb));
        return xcb_connection_has_error(connection->m_xcb) != 0 && !connection->m_quitSignalled;
    };
    if (QCoreApplication::instance() != nullptr && std::ranges::any_of(liveConnections(), unfinished)) {
        QMetaObject::invokeMethod(QCoreApplication::instance(), "aboutToQuit", Qt::DirectConnection);
    }
}

bool X11Connection::isOwnWindow(xcb_window_t window) {
    for (const auto* connection : liveConnections()) {
        if (IdRange::of(connection->xcb()).contains(window)) {
            return true;
        }
    }
    const auto* x11 =
        qGuiApp == nullptr ? nullptr : qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr && x11->connection() != nullptr && IdRange::of(x11->connection()).contains(window);
}

xcb_window_t rootWindow(xcb_connection_t* connection, int screenNumber) {
    auto roots = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int i = 0; i < screenNumber && roots.rem > 1; ++i) {
        xcb_screen_next(&roots);
    }
    return roots.data->root;
}

} // namespace quillary
