#include "platform/x11/X11SingleInstance.h"

#include "platform/linux/launch/StartupMessage.h"
#include "platform/linux/launch/StartupNotification.h"
#include "platform/x11/StartupId.h"
#include "platform/x11/X11Message.h"
#include "platform/x11/X11Property.h"

#include <algorithm>
#include <chrono>
#include <string>

#include <poll.h>

namespace quillary {

namespace {

// Each time the one that ran had ended before it answered.
constexpr int mostAttempts = 5;

constexpr std::uint32_t protocolVersion = 1;

} // namespace

X11SingleInstance::X11SingleInstance(X11Connection& server, const StartupNotification& notification)
    : connection(server), startup(notification) {
    connect(&connection, &X11Connection::eventReceived, this, &X11SingleInstance::handleEvent);
}

bool X11SingleInstance::claim() {
    if (window != XCB_WINDOW_NONE) {
        return true;
    }
    createWindow();
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const auto owner = takeOrFindOwner();
        if (owner == window) {
            return true;
        }
        if (tell(owner) == Answer::heard) {
            xcb_destroy_window(connection.xcb(), std::exchange(window, XCB_WINDOW_NONE));
            connection.flush();
            // What was started is the window that the other one shows now.
            if (const auto id = StartupId::own(); !id.empty()) {
                startup.origin().broadcast(startupEnd(id));
            }
            return false;
        }
    }
    return true;
}

void X11SingleInstance::createWindow() {
    auto* xcb = connection.xcb();
    selection = internAtom(xcb, "_QUILLARY_S" + std::to_string(connection.screenNumber()));
    mark = internAtom(xcb, "_QUILLARY_INSTANCE");
    reopen = internAtom(xcb, "_QUILLARY_REOPEN");
    window = xcb_generate_id(xcb);
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(xcb, 0, window, connection.root(), -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, window, mark, XCB_ATOM_CARDINAL, 32, 1, &protocolVersion);
}

xcb_window_t X11SingleInstance::takeOrFindOwner() {
    auto* xcb = connection.xcb();
    // Between the look and the claim nobody else may claim.
    xcb_grab_server(xcb);
    const auto found =
        connection.reply(xcb_get_selection_owner_reply, xcb_get_selection_owner(xcb, selection));
    auto owner = found ? found->owner : xcb_window_t{XCB_WINDOW_NONE};
    if (owner != XCB_WINDOW_NONE &&
        readProperty(connection, requestProperty(connection, owner, mark, 4)).numbers.empty()) {
        owner = XCB_WINDOW_NONE;
    }
    if (owner == XCB_WINDOW_NONE) {
        xcb_set_selection_owner(xcb, window, selection, XCB_CURRENT_TIME);
        owner = window;
    }
    xcb_ungrab_server(xcb);
    connection.flush();
    return owner;
}

// By a connection of its own, whose events are nobody else's.
X11SingleInstance::Answer X11SingleInstance::tell(xcb_window_t owner) const {
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
        if (kind == XCB_CLIENT_MESSAGE && eventAs<xcb_client_message_event_t>(event)->type == reopen) {
            answer = Answer::heard;
        } else if (kind == XCB_DESTROY_NOTIFY &&
                   eventAs<xcb_destroy_notify_event_t>(event)->window == owner) {
            answer = answer.value_or(Answer::gone);
        }
    });
    X11Message::toClient(*line, owner, reopen, StartupId::time(StartupId::own()), asker);
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
    if (window == XCB_WINDOW_NONE) {
        return;
    }
    const int kind = eventKind(event);
    if (kind == XCB_CLIENT_MESSAGE) {
        const auto* message = eventAs<xcb_client_message_event_t>(event);
        if (message->window == window && message->type == reopen && message->format == 32) {
            asked = message->data.data32[0];
            confirm(message->data.data32[1]);
            askTime();
        }
    } else if (kind == XCB_PROPERTY_NOTIFY) {
        const auto* notify = eventAs<xcb_property_notify_event_t>(event);
        if (notify->window == window && (notify->response_type & 0x80) == 0) {
            handleTime(notify->time);
        }
    }
}

void X11SingleInstance::confirm(xcb_window_t asker) {
    if (asker != XCB_WINDOW_NONE && asker != window) {
        X11Message::toClient(connection, asker, reopen, XCB_CURRENT_TIME, window);
    }
}

// ICCCM 2.1: a change of a property by nothing tells the server's time.
void X11SingleInstance::askTime() {
    xcb_change_property(connection.xcb(), XCB_PROP_MODE_APPEND, window, mark, XCB_ATOM_CARDINAL, 32, 0,
                        nullptr);
    connection.flush();
}

void X11SingleInstance::handleTime(xcb_timestamp_t now) {
    if (!asked) {
        return;
    }
    auto time = *std::exchange(asked, std::nullopt);
    // Server times wrap. One that lies in the future would spoil all that the toolkit asks for from now on.
    if (time == XCB_CURRENT_TIME || static_cast<std::int32_t>(now - time) < 0) {
        time = now;
    }
    userTime.tell(time, [this] { Q_EMIT reopened(); });
}

} // namespace quillary
