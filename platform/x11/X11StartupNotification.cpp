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
    Talk() : connection(xcb_connect(nullptr, &screen)) {
        if (xcb_connection_has_error(connection.get()) != 0) {
            return;
        }
        auto roots = xcb_setup_roots_iterator(xcb_get_setup(connection.get()));
        for (int i = 0; i < screen; ++i) {
            xcb_screen_next(&roots);
        }
        root = roots.data->root;
        window = xcb_generate_id(connection.get());
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(connection.get(), 0, window, root, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                          XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
    }

    [[nodiscard]] bool works() const { return window != XCB_WINDOW_NONE; }

    void broadcast(std::string_view message) const {
        auto type = atom("_NET_STARTUP_INFO_BEGIN");
        const auto continued = atom("_NET_STARTUP_INFO");
        // The end of the text is a NUL, which an empty last part brings along too.
        for (std::size_t begin = 0; begin <= message.size(); begin += partLength) {
            xcb_client_message_event_t event{};
            event.response_type = XCB_CLIENT_MESSAGE;
            event.format = 8;
            event.window = window;
            event.type = type;
            const auto part = message.substr(begin, partLength);
            std::copy(part.begin(), part.end(), std::begin(event.data.data8));
            xcb_send_event(connection.get(), 0, root, XCB_EVENT_MASK_PROPERTY_CHANGE,
                           reinterpret_cast<const char*>(&event));
            type = continued;
        }
        // The window must not go before its messages are out.
        const XcbPointer<xcb_get_input_focus_reply_t> done(
            xcb_get_input_focus_reply(connection.get(), xcb_get_input_focus(connection.get()), nullptr));
    }

    // ICCCM: a property that changes tells the server's time.
    [[nodiscard]] std::uint32_t time() const {
        xcb_change_property(connection.get(), XCB_PROP_MODE_APPEND, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING,
                            8, 0, nullptr);
        xcb_flush(connection.get());
        while (const XcbPointer<xcb_generic_event_t> event{xcb_wait_for_event(connection.get())}) {
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
            connection.get(),
            xcb_intern_atom(connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data()),
            nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    int screen = 0;
    std::unique_ptr<xcb_connection_t, Disconnect> connection;
    xcb_window_t root = XCB_WINDOW_NONE;
    xcb_window_t window = XCB_WINDOW_NONE;
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

X11StartupNotification::X11StartupNotification(int screenNumber) : screen(screenNumber) {
    QCoreApplication::instance()->installEventFilter(this);
}

X11StartupNotification::~X11StartupNotification() = default;

StartupOrigin X11StartupNotification::origin() const {
    return {.time = lastInput, .screen = screen, .clock = serverTime, .broadcast = broadcast};
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
            lastInput = static_cast<std::uint32_t>(time);
        }
        break;
    case QEvent::Drop:
        // Its moment is the source's secret, and what came before is long past.
        lastInput = 0;
        break;
    default:
        break;
    }
    return false;
}

} // namespace quillary
