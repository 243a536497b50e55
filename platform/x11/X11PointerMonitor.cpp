#include "platform/x11/X11PointerMonitor.h"

#include "platform/x11/X11Screens.h"

#include <QGuiApplication>
#include <QScreen>

#include <xcb/xinput.h>

#include <algorithm>

namespace quillary {

X11PointerMonitor::X11PointerMonitor(std::unique_ptr<X11Connection> connection, const X11Screens& screens)
    : m_connection(std::move(connection)), m_screens(screens) {
    m_frame.setSingleShot(true);
    m_frame.setTimerType(Qt::PreciseTimer);
    connect(&m_frame, &QTimer::timeout, this, &X11PointerMonitor::endFrame);
    m_lastLook.setSingleShot(true);
    m_lastLook.setInterval(lastLookDelay);
    connect(&m_lastLook, &QTimer::timeout, this, &X11PointerMonitor::refresh);
    connect(m_connection.get(), &X11Connection::eventReceived, this, &X11PointerMonitor::handleEvent);
    connect(m_connection.get(), &X11Connection::settled, this, &X11PointerMonitor::handleSettled);
    selectRawEvents();
    if (const auto now = query()) {
        m_lastEmitted = now->location;
    }
}

int X11PointerMonitor::frameInterval() {
    constexpr int shortest = 4;
    constexpr int longest = 16;
    constexpr double millisecondsPerSecond = 1000;
    double fastest = 0;
    for (const QScreen* screen : QGuiApplication::screens()) {
        fastest = std::max(fastest, screen->refreshRate());
    }
    return fastest > 0 ? std::clamp(static_cast<int>(millisecondsPerSecond / fastest), shortest, longest)
                       : longest;
}

void X11PointerMonitor::selectRawEvents() {
    const auto* input = xcb_get_extension_data(m_connection->xcb(), &xcb_input_id);
    if (input == nullptr || input->present == 0 ||
        !m_connection->reply(xcb_input_xi_query_version_reply,
                             xcb_input_xi_query_version(m_connection->xcb(), 2, 2))) {
        return;
    }
    m_extensionOpcode = input->major_opcode;
    // Clicks and touches reveal the location of a pointer that a program has warped, and the release of a
    // button that of a drag whose movements were not emitted.
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1},
                XCB_INPUT_XI_EVENT_MASK_RAW_MOTION | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS |
                    XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE | XCB_INPUT_XI_EVENT_MASK_RAW_TOUCH_BEGIN |
                    XCB_INPUT_XI_EVENT_MASK_RAW_TOUCH_UPDATE};
    xcb_input_xi_select_events(m_connection->xcb(), m_connection->root(), 1, &selection.head);
    m_connection->flush();
}

void X11PointerMonitor::handleEvent(const xcb_generic_event_t* event) {
    if (eventKind(event) == XCB_GE_GENERIC &&
        eventAs<xcb_ge_generic_event_t>(event)->extension == m_extensionOpcode) {
        m_moving = true;
    }
}

void X11PointerMonitor::handleSettled() {
    if (!m_moving) {
        return;
    }
    m_moving = false;
    // Until the frame ends, events stay in the socket instead of waking the program one by one.
    m_connection->setListening(X11Connection::Listening::off);
    m_frame.start(frameInterval());
    m_lastLook.start();
    refresh();
}

void X11PointerMonitor::endFrame() {
    // Movements during this frame start the next one.
    m_connection->dispatch();
    if (!m_frame.isActive()) {
        m_connection->setListening(X11Connection::Listening::on);
    }
}

QPointF X11PointerMonitor::location() const {
    const auto now = query();
    return now ? now->location : m_lastEmitted.value_or(QPointF());
}

void X11PointerMonitor::refresh() {
    const auto now = query();
    if (now && !now->dragsWithAnotherButton && now->location != m_lastEmitted) {
        m_lastEmitted = now->location;
        Q_EMIT moved(now->location);
    }
}

std::optional<X11PointerMonitor::Pointer> X11PointerMonitor::query() const {
    const auto answer = m_connection->reply(xcb_query_pointer_reply,
                                            xcb_query_pointer(m_connection->xcb(), m_connection->root()));
    // A pointer on another X screen is not on this desktop.
    if (!answer || answer->same_screen == 0) {
        return std::nullopt;
    }
    // Buttons 4 and 5 are the wheel.
    constexpr unsigned others = XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    return Pointer{.location = m_screens.toPoints(QPoint(answer->root_x, answer->root_y)),
                   .dragsWithAnotherButton =
                       (answer->mask & XCB_BUTTON_MASK_1) == 0 && (answer->mask & others) != 0};
}

} // namespace quillary
