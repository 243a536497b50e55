#include "platform/x11/X11UserTime.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <utility>

namespace quillary {

namespace {

constexpr int longestWait = 1000;

} // namespace

X11UserTime::X11UserTime() {
    QCoreApplication::instance()->installNativeEventFilter(this);
    m_deadline.setSingleShot(true);
    m_deadline.setInterval(longestWait);
    connect(&m_deadline, &QTimer::timeout, this, &X11UserTime::finish);
}

X11UserTime::~X11UserTime() {
    if (auto* application = QCoreApplication::instance()) {
        application->removeNativeEventFilter(this);
    }
}

void X11UserTime::announce(xcb_timestamp_t time, std::function<void()> announced) {
    m_pending = std::move(announced);
    m_deadline.start();
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr || x11->connection() == nullptr) {
        finish();
        return;
    }
    if (!m_window) {
        m_window = std::make_unique<QWindow>();
        m_window->create();
    }
    // Qt takes the present time from the events that it receives. This one has no other effect.
    xcb_property_notify_event_t event{};
    event.response_type = XCB_PROPERTY_NOTIFY;
    event.window = static_cast<xcb_window_t>(m_window->winId());
    event.atom = XCB_ATOM_NONE;
    event.time = time;
    event.state = XCB_PROPERTY_NEW_VALUE;
    xcb_send_event(x11->connection(), 0, event.window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(x11->connection());
}

bool X11UserTime::nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) {
    if (m_pending && m_window && type == QByteArrayLiteral("xcb_generic_event_t")) {
        const auto* event = static_cast<const xcb_property_notify_event_t*>(message);
        if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY && event->atom == XCB_ATOM_NONE &&
            event->window == static_cast<xcb_window_t>(m_window->winId())) {
            // Qt processes the event after its native event filters.
            QMetaObject::invokeMethod(this, &X11UserTime::finish, Qt::QueuedConnection);
        }
    }
    return false;
}

void X11UserTime::finish() {
    m_deadline.stop();
    if (const auto announced = std::exchange(m_pending, nullptr)) {
        announced();
    }
}

} // namespace quillary
