#include "platform/x11/X11Message.h"

#include "platform/x11/X11Connection.h"

namespace quillary {

namespace {

void send(X11Connection& connection, xcb_window_t destination, std::uint32_t mask,
          const xcb_client_message_event_t& message) {
    xcb_send_event(connection.xcb(), 0, destination, mask, reinterpret_cast<const char*>(&message));
    connection.flush();
}

xcb_client_message_event_t made(xcb_window_t window, xcb_atom_t type, std::uint32_t first,
                                std::uint32_t second) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = type;
    message.data.data32[0] = first;
    message.data.data32[1] = second;
    return message;
}

} // namespace

void X11Message::toClient(X11Connection& connection, xcb_window_t window, xcb_atom_t type,
                          std::uint32_t first, std::uint32_t second) {
    // With an empty mask, the server delivers the event to the client that created the window.
    send(connection, window, XCB_EVENT_MASK_NO_EVENT, made(window, type, first, second));
}

void X11Message::toWindowManager(X11Connection& connection, xcb_window_t window, xcb_atom_t type,
                                 std::uint32_t first, std::uint32_t second) {
    send(connection, connection.root(),
         XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
         made(window, type, first, second));
}

} // namespace quillary
