#include "platform/x11/X11StartupNotification.h"

#include "platform/x11/XcbPointer.h"

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

// A connection for one short talk.
class Talk {
public:
    Talk() : m_connection(xcb_connect(nullptr, &m_screen)) {
        if (xcb_connection_has_error(m_connection.get()) != 0) {
            return;
        }
        auto roots = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get()));
        for (int i = 0; i < m_screen; ++i) {
            xcb_screen_next(&roots);
        }
        m_root = roots.data->root;
        m_window = xcb_generate_id(m_connection.get());
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(m_connection.get(), 0, m_window, m_root, -1, -1, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
    }

    [[nodiscard]] bool works() const { return m_window != XCB_WINDOW_NONE; }

    void broadcast(std::string_view message) const {
        auto type = atom("_NET_STARTUP_INFO_BEGIN");
        const auto continued = atom("_NET_STARTUP_INFO");
        // The end of the text is a NUL, which an empty last part brings along too.
        for (std::size_t begin = 0; begin <= message.size(); begin += partLength) {
            xcb_client_message_event_t event{};
            event.response_type = XCB_CLIENT_MESSAGE;
            event.format = 8;
            event.window = m_window;
            event.type = type;
            const auto part = message.substr(begin, partLength);
            std::copy(part.begin(), part.end(), std::begin(event.data.data8));
            xcb_send_event(m_connection.get(), 0, m_root, XCB_EVENT_MASK_PROPERTY_CHANGE,
                           reinterpret_cast<const char*>(&event));
            type = continued;
        }
        // The window must not go before its messages are out.
        const XcbPointer<xcb_get_input_focus_reply_t> done(
            xcb_get_input_focus_reply(m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr));
    }

    // ICCCM: a property that changes tells the server's time.
    [[nodiscard]] std::uint32_t time() const {
        xcb_change_property(m_connection.get(), XCB_PROP_MODE_APPEND, m_window, XCB_ATOM_WM_NAME,
                            XCB_ATOM_STRING, 8, 0, nullptr);
        xcb_flush(m_connection.get());
        while (const XcbPointer<xcb_generic_event_t> event{xcb_wait_for_event(m_connection.get())}) {
            if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY) {
                return reinterpret_cast<const xcb_property_notify_event_t*>(event.get())->time;
            }
        }
        return 0;
    }

private:
    static constexpr std::size_t partLength = 20;

    [[nodiscard]] xcb_atom_t atom(std::string_view name) const {
        const XcbPointer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            m_connection.get(),
            xcb_intern_atom(m_connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data()),
            nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    int m_screen = 0;
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    xcb_window_t m_window = XCB_WINDOW_NONE;
};

std::uint32_t serverTime() {
    const Talk talk;
    return talk.works() ? talk.time() : 0;
}

void broadcast(const std::string& message) {
    if (const Talk talk; talk.works()) {
        talk.broadcast(message);
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
        // Qt hands on the server's time; an event that a program made up has none.
        if (const auto time = static_cast<QInputEvent*>(event)->timestamp(); time != 0) {
            m_lastInput = static_cast<std::uint32_t>(time);
        }
        break;
    case QEvent::Drop:
        // Its moment is the source's secret, and what came before is long past.
        m_lastInput = 0;
        break;
    default:
        break;
    }
    return false;
}

} // namespace quillary
