#include "tests/x11/TestWindow.h"

#include <cstdlib>

namespace quillary::test {

TestWindow::TestWindow(const VirtualDisplay& host, const QRect& geometry, Manager manager)
    : m_display(host),
      m_connection(xcb_connect(host.name().c_str(), nullptr)),
      m_window(xcb_generate_id(m_connection)) {
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    const std::uint32_t values[] = {screen->white_pixel, manager == Manager::bypassed ? 1U : 0U,
                                    XCB_EVENT_MASK_BUTTON_PRESS};
    xcb_create_window(
        m_connection, XCB_COPY_FROM_PARENT, m_window, screen->root, static_cast<std::int16_t>(geometry.x()),
        static_cast<std::int16_t>(geometry.y()), static_cast<std::uint16_t>(geometry.width()),
        static_cast<std::uint16_t>(geometry.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
        XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    // ICCCM size hints with a position that the user chose (flags 1 and 2): the window manager leaves it
    // there.
    std::vector<std::uint32_t> hints(18, 0);
    hints[0] = 1U | 2U;
    setNumbers("WM_NORMAL_HINTS", "WM_SIZE_HINTS", hints);
    setAtoms("WM_PROTOCOLS", {"WM_DELETE_WINDOW"});
}

TestWindow::~TestWindow() {
    xcb_disconnect(m_connection);
}

void TestWindow::setText(const std::string& property, const std::string& bytes) {
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, m_display.atom(property),
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(bytes.size()), bytes.data());
    sync();
}

void TestWindow::setNumbers(const std::string& property, const std::string& type,
                            const std::vector<std::uint32_t>& values) {
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, m_display.atom(property),
                        m_display.atom(type), 32, static_cast<std::uint32_t>(values.size()), values.data());
    sync();
}

void TestWindow::setAtoms(const std::string& property, const std::vector<std::string>& values) {
    std::vector<std::uint32_t> atoms;
    atoms.reserve(values.size());
    for (const auto& value : values) {
        atoms.push_back(m_display.atom(value));
    }
    setNumbers(property, "ATOM", atoms);
}

void TestWindow::removeProperty(const std::string& property) {
    xcb_delete_property(m_connection, m_window, m_display.atom(property));
    sync();
}

void TestWindow::setClass(const std::string& instance, const std::string& windowClass) {
    setText("WM_CLASS", instance + '\0' + windowClass + '\0');
}

void TestWindow::setProcess(std::uint32_t pid, const std::string& machine) {
    setNumbers("_NET_WM_PID", "CARDINAL", {pid});
    setText("WM_CLIENT_MACHINE", machine);
}

bool TestWindow::show() {
    xcb_map_window(m_connection, m_window);
    sync();
    return VirtualDisplay::waitUntil([this] { return m_display.isViewable(m_window); });
}

void TestWindow::unmap() {
    xcb_unmap_window(m_connection, m_window);
    sync();
}

void TestWindow::destroy() {
    xcb_destroy_window(m_connection, m_window);
    sync();
}

bool TestWindow::grabPointer() {
    const auto cookie =
        xcb_grab_pointer(m_connection, 1, m_window, XCB_EVENT_MASK_BUTTON_RELEASE, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE, XCB_CURSOR_NONE, XCB_CURRENT_TIME);
    auto* reply = xcb_grab_pointer_reply(m_connection, cookie, nullptr);
    const bool done = reply != nullptr && reply->status == XCB_GRAB_STATUS_SUCCESS;
    std::free(reply);
    return done;
}

int TestWindow::clicks() {
    readEvents();
    return m_clickCount;
}

bool TestWindow::closeAsked() {
    readEvents();
    return m_deleteAsked;
}

void TestWindow::readEvents() {
    while (auto* event = xcb_poll_for_event(m_connection)) {
        const int kind = event->response_type & 0x7f;
        if (kind == XCB_BUTTON_PRESS) {
            ++m_clickCount;
        } else if (kind == XCB_CLIENT_MESSAGE) {
            const auto* message = reinterpret_cast<const xcb_client_message_event_t*>(event);
            m_deleteAsked = m_deleteAsked || message->data.data32[0] == m_display.atom("WM_DELETE_WINDOW");
        }
        std::free(event);
    }
}

void TestWindow::sync() {
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

} // namespace quillary::test
