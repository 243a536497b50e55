#include "platform/x11/X11StartupNotification.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11ServerTime.h"

#include <QCoreApplication>
#include <QInputEvent>

#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace quillary {

namespace {

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

// A connection for one exchange on any thread, with a window to send from.
class BriefConnection {
public:
    BriefConnection() : m_connection(xcb_connect(nullptr, &m_screenNumber)) {
        if (xcb_connection_has_error(m_connection.get()) != 0) {
            return;
        }
        m_root = rootWindow(m_connection.get(), m_screenNumber);
        m_window = xcb_generate_id(m_connection.get());
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(m_connection.get(), 0, m_window, m_root, -1, -1, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
    }

    [[nodiscard]] bool isOpen() const { return m_window != XCB_WINDOW_NONE; }

    void broadcast(std::string_view message) const {
        auto type = internAtom(m_connection.get(), "_NET_STARTUP_INFO_BEGIN");
        const auto continued = internAtom(m_connection.get(), "_NET_STARTUP_INFO");
        // A NUL ends the text; when the text fills its last part, an empty part follows to carry the NUL.
        for (std::size_t begin = 0; begin <= message.size(); begin += partLength) {
            xcb_client_message_event_t event{};
            event.response_type = XCB_CLIENT_MESSAGE;
            event.format = 8;
            event.window = m_window;
            event.type = type;
            const auto part = message.substr(begin, partLength);
            std::ranges::copy(part, std::begin(event.data.data8));
            xcb_send_event(m_connection.get(), 0, m_root, XCB_EVENT_MASK_PROPERTY_CHANGE,
                           reinterpret_cast<const char*>(&event));
            type = continued;
        }
        // Wait for a reply: the window must exist until the server has delivered its messages.
        const XcbPointer<xcb_get_input_focus_reply_t> done(
            xcb_get_input_focus_reply(m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr));
    }

    // 0 when the connection breaks.
    [[nodiscard]] std::uint32_t time() const {
        X11ServerTime::request(m_connection.get(), m_window);
        while (const XcbPointer<xcb_generic_event_t> event{xcb_wait_for_event(m_connection.get())}) {
            if (const auto now = X11ServerTime::answer(event.get(), m_window)) {
                return *now;
            }
        }
        return 0;
    }

private:
    static constexpr std::size_t partLength = 20;

    int m_screenNumber = 0;
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    xcb_window_t m_window = XCB_WINDOW_NONE;
};

std::uint32_t serverTime() {
    const BriefConnection connection;
    return connection.isOpen() ? connection.time() : 0;
}

void broadcast(const std::string& message) {
    if (const BriefConnection connection; connection.isOpen()) {
        connection.broadcast(message);
    }
}

} // namespace

X11StartupNotification::X11StartupNotification(int screenNumber) : m_screenNumber(screenNumber) {
    QCoreApplication::instance()->installEventFilter(this);
}

X11StartupNotification::~X11StartupNotification() = default;

StartupOrigin X11StartupNotification::origin() const {
    return {.time = m_lastInput, .screen = m_screenNumber, .clock = serverTime, .broadcast = broadcast};
}

bool X11StartupNotification::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::TouchBegin:
    case QEvent::TouchEnd:
        // Qt passes the server's time on. Synthesised events have none.
        if (const auto time = static_cast<QInputEvent*>(event)->timestamp(); time != 0) {
            m_lastInput = static_cast<std::uint32_t>(time);
        }
        break;
    case QEvent::Drop:
        // Qt does not provide the time of a drop, and the last input event is too old to stand in for it.
        m_lastInput = 0;
        break;
    default:
        break;
    }
    return false;
}

} // namespace quillary
