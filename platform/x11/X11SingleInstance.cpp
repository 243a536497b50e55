#include "platform/x11/X11SingleInstance.h"

#include "platform/linux/launch/StartupMessage.h"
#include "platform/linux/launch/StartupNotification.h"
#include "platform/x11/StartupId.h"
#include "platform/x11/X11Message.h"
#include "platform/x11/X11Property.h"
#include "platform/x11/X11ServerTime.h"

#include <algorithm>
#include <chrono>
#include <string>

#include <poll.h>

namespace quillary {

namespace {

// An attempt fails when the running instance ends before it answers.
constexpr int mostAttempts = 5;

constexpr std::uint32_t protocolVersion = 1;

} // namespace

X11SingleInstance::X11SingleInstance(X11Connection& connection, const StartupNotification& startup)
    : m_connection(connection), m_startup(startup) {
    connect(&m_connection, &X11Connection::eventReceived, this, &X11SingleInstance::handleEvent);
}

bool X11SingleInstance::claim() {
    if (m_window != XCB_WINDOW_NONE) {
        return true;
    }
    createWindow();
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const auto owner = takeOrFindOwner();
        if (owner == m_window) {
            return true;
        }
        if (notify(owner) == Answer::heard) {
            xcb_destroy_window(m_connection.xcb(), std::exchange(m_window, XCB_WINDOW_NONE));
            m_connection.flush();
            // The launch is complete: the other instance now shows the window.
            if (const auto id = StartupId::own(); !id.empty()) {
                m_startup.origin().broadcast(startupEnd(id));
            }
            return false;
        }
    }
    return true;
}

void X11SingleInstance::createWindow() {
    auto* xcb = m_connection.xcb();
    m_selection = internAtom(xcb, "_QUILLARY_S" + std::to_string(m_connection.screenNumber()));
    m_mark = internAtom(xcb, "_QUILLARY_INSTANCE");
    m_reopen = internAtom(xcb, "_QUILLARY_REOPEN");
    m_window = xcb_generate_id(xcb);
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(xcb, 0, m_window, m_connection.root(), -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, m_window, m_mark, XCB_ATOM_CARDINAL, 32, 1,
                        &protocolVersion);
}

xcb_window_t X11SingleInstance::takeOrFindOwner() {
    auto* xcb = m_connection.xcb();
    // No other client may acquire the selection between the check and our claim.
    xcb_grab_server(xcb);
    const auto found =
        m_connection.reply(xcb_get_selection_owner_reply, xcb_get_selection_owner(xcb, m_selection));
    auto owner = found ? found->owner : xcb_window_t{XCB_WINDOW_NONE};
    if (owner != XCB_WINDOW_NONE &&
        readProperty(m_connection, requestProperty(m_connection, owner, m_mark, 4)).numbers.empty()) {
        owner = XCB_WINDOW_NONE;
    }
    if (owner == XCB_WINDOW_NONE) {
        xcb_set_selection_owner(xcb, m_window, m_selection, XCB_CURRENT_TIME);
        owner = m_window;
    }
    xcb_ungrab_server(xcb);
    m_connection.flush();
    return owner;
}

// Uses a separate connection, so that no other object receives its events.
X11SingleInstance::Answer X11SingleInstance::notify(xcb_window_t owner) const {
    const auto line = X11Connection::open();
    if (!line) {
        return Answer::heard;
    }
    const auto asker = xcb_generate_id(line->xcb());
    xcb_create_window(line->xcb(), 0, asker, line->root(), -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(line->xcb(), owner, XCB_CW_EVENT_MASK, &mask);
    std::optional<Answer> answer;
    connect(line.get(), &X11Connection::eventReceived, line.get(), [&](const xcb_generic_event_t* event) {
        const int kind = eventKind(event);
        if (kind == XCB_CLIENT_MESSAGE && eventAs<xcb_client_message_event_t>(event)->type == m_reopen) {
            answer = Answer::heard;
        } else if (kind == XCB_DESTROY_NOTIFY &&
                   eventAs<xcb_destroy_notify_event_t>(event)->window == owner) {
            answer = answer.value_or(Answer::gone);
        }
    });
    X11Message::toClient(*line, owner, m_reopen, StartupId::time(StartupId::own()), asker);
    if (!line->reply(xcb_get_geometry_reply, xcb_get_geometry(line->xcb(), owner))) {
        return Answer::gone;
    }
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(longestWait);
    while (!answer && Clock::now() < end) {
        line->dispatch();
        if (!answer) {
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
            pollfd waiting{xcb_get_file_descriptor(line->xcb()), POLLIN, 0};
            poll(&waiting, 1, static_cast<int>(std::max<std::int64_t>(left.count(), 0)));
        }
    }
    return answer.value_or(Answer::heard);
}

void X11SingleInstance::handleEvent(const xcb_generic_event_t* event) {
    if (m_window == XCB_WINDOW_NONE) {
        return;
    }
    if (eventKind(event) == XCB_CLIENT_MESSAGE) {
        const auto* message = eventAs<xcb_client_message_event_t>(event);
        if (message->window == m_window && message->type == m_reopen && message->format == 32) {
            m_asked = message->data.data32[0];
            confirm(message->data.data32[1]);
            X11ServerTime::request(m_connection.xcb(), m_window);
        }
    } else if (const auto now = X11ServerTime::answer(event, m_window)) {
        handleTime(*now);
    }
}

void X11SingleInstance::confirm(xcb_window_t asker) {
    if (asker != XCB_WINDOW_NONE && asker != m_window) {
        X11Message::toClient(m_connection, asker, m_reopen, XCB_CURRENT_TIME, m_window);
    }
}

void X11SingleInstance::handleTime(xcb_timestamp_t now) {
    if (!m_asked) {
        return;
    }
    auto time = *std::exchange(m_asked, std::nullopt);
    // Server times wrap around. Qt must not use a time in the future: it would stamp all later requests with
    // it.
    if (time == XCB_CURRENT_TIME || static_cast<std::int32_t>(now - time) < 0) {
        time = now;
    }
    m_userTime.announce(time, [this] { Q_EMIT reopened(); });
}

} // namespace quillary
