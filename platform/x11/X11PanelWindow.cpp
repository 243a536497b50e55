#include "platform/x11/X11PanelWindow.h"

#include "platform/qt/QtMenu.h"
#include "platform/x11/ShapeRectangles.h"
#include "platform/x11/X11Compositor.h"
#include "platform/x11/X11EventMask.h"
#include "platform/x11/X11Grab.h"
#include "platform/x11/X11Screens.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPlatformSurfaceEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <xcb/shape.h>

#include <array>
#include <utility>
#include <vector>

namespace quillary {

namespace {

constexpr std::uint32_t allDesktops = 0xFFFFFFFF;

// How long a window manager may take to apply the requested frame, in milliseconds.
constexpr int frameCheckDelay = 300;

// A window manager that still overrides the frame after so many requests will not give in.
constexpr int mostFrameRetries = 5;

template<std::size_t count>
void writeProperty(xcb_connection_t* xcb, xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                   const std::array<std::uint32_t, count>& values) {
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, window, property, type, 32, count, values.data());
}

} // namespace

X11PanelWindow::X11PanelWindow(QWidget& contents, X11Connection& connection, const X11Compositor& compositor,
                               const X11Screens& screens)
    : m_connection(connection), m_compositor(compositor), m_screens(screens), m_contents(&contents) {
    contents.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                            Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint);
    contents.setAttribute(Qt::WA_TranslucentBackground);
    contents.setAttribute(Qt::WA_ShowWithoutActivating);
    contents.installEventFilter(this);
    dress();

    m_frameCheck.setSingleShot(true);
    m_frameCheck.setInterval(frameCheckDelay);
    connect(&m_frameCheck, &QTimer::timeout, this, &X11PanelWindow::checkFrame);
    connect(&m_connection, &X11Connection::eventReceived, this, &X11PanelWindow::handleEvent);
    connect(&m_compositor, &X11Compositor::changed, this, [this] {
        applyBlur();
        applyShapes();
        Q_EMIT compositedChanged();
    });
    // Qt maps points to pixels by its list of screens. When that changes, the same frame may be at other
    // pixels.
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &X11PanelWindow::screensChanged);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &X11PanelWindow::screensChanged,
            Qt::QueuedConnection);
}

X11PanelWindow::~X11PanelWindow() {
    if (m_contents) {
        m_contents->removeEventFilter(this);
    }
    if (m_watchedWindow) {
        m_watchedWindow->removeEventFilter(this);
    }
}

xcb_connection_t* X11PanelWindow::qtConnection() const {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

void X11PanelWindow::dress() {
    if (!m_contents || m_closed || qtConnection() == nullptr) {
        return;
    }
    const auto window = static_cast<xcb_window_t>(m_contents->winId());
    if (m_watchedWindow != m_contents->windowHandle()) {
        m_watchedWindow = m_contents->windowHandle();
        m_watchedWindow->installEventFilter(this);
        connect(m_watchedWindow, &QWindow::screenChanged, this, &X11PanelWindow::applyShapes);
    }
    const bool created = window != m_native;
    m_native = window;
    setProperties();
    if (created) {
        m_sentInput.reset();
        m_sentBlur = {};
        m_sentBounds.reset();
        followCrossings();
        // X11PointerMonitor reports movements once per frame. Qt would wake two threads for each event, a
        // thousand times a second with a fast mouse.
        X11EventMask::leaveOutMotion(qtConnection(), m_native);
    }
    applyBlur();
    applyShapes();
}

void X11PanelWindow::setProperties() {
    const auto& atoms = m_connection.atoms();
    auto* xcb = qtConnection();
    writeProperty(xcb, m_native, atoms.netWmWindowType, XCB_ATOM_ATOM, std::array{atoms.netWmWindowTypeDock});
    writeProperty(xcb, m_native, atoms.netWmState, XCB_ATOM_ATOM,
                  std::array{atoms.netWmStateAbove, atoms.netWmStateSticky, atoms.netWmStateSkipTaskbar,
                             atoms.netWmStateSkipPager});
    writeProperty(xcb, m_native, atoms.netWmDesktop, XCB_ATOM_CARDINAL, std::array{allDesktops});
    xcb_flush(xcb);
}

void X11PanelWindow::followCrossings() {
    // A round trip ensures that the server has created the window before another connection refers to it.
    auto* xcb = qtConnection();
    const XcbPointer<xcb_get_geometry_reply_t> reply(
        xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, m_native), nullptr));
    const std::uint32_t mask = XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW;
    xcb_change_window_attributes(m_connection.xcb(), m_native, XCB_CW_EVENT_MASK, &mask);
    m_connection.flush();
}

void X11PanelWindow::handleEvent(const xcb_generic_event_t* event) {
    const int kind = eventKind(event);
    if (!m_closed && (kind == XCB_ENTER_NOTIFY || kind == XCB_LEAVE_NOTIFY) &&
        eventAs<xcb_enter_notify_event_t>(event)->event == m_native) {
        Q_EMIT pointerCrossed();
    }
}

bool X11PanelWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_contents) {
        switch (event->type()) {
        case QEvent::WinIdChange:
            if (m_contents->internalWinId() != 0) {
                dress();
            }
            break;
        case QEvent::Show:
            // Window managers remove the states of a window when it is withdrawn (EWMH).
            if (!event->spontaneous()) {
                dress();
            }
            break;
        case QEvent::Move:
        case QEvent::Resize:
            if (m_contents->isVisible() && m_contents->geometry() != m_frame) {
                m_frameCheck.start();
            }
            if (frame() != m_reportedFrame) {
                m_reportedFrame = frame();
                Q_EMIT frameChanged();
            }
            break;
        default:
            break;
        }
    } else if (watched == m_watchedWindow && event->type() == QEvent::PlatformSurface &&
               dynamic_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType() ==
                   QPlatformSurfaceEvent::SurfaceCreated) {
        dress();
    }
    return PanelWindow::eventFilter(watched, event);
}

void X11PanelWindow::setFrame(const QRect& frame) {
    if (frame == m_frame || m_closed) {
        return;
    }
    m_frame = frame;
    m_reportedFrame = frame;
    m_frameRetries = 0;
    applyFrame();
}

QRect X11PanelWindow::frame() const {
    return isVisible() ? m_contents->geometry() : m_frame;
}

void X11PanelWindow::applyFrame() {
    if (m_contents && !m_closed && m_frame.isValid()) {
        m_contents->setGeometry(m_frame);
        applyShapes();
    }
}

void X11PanelWindow::checkFrame() {
    if (m_contents && m_contents->isVisible() && m_contents->geometry() != m_frame &&
        m_frameRetries < mostFrameRetries) {
        ++m_frameRetries;
        applyFrame();
    }
}

void X11PanelWindow::screensChanged() {
    m_frameRetries = 0;
    applyFrame();
}

void X11PanelWindow::setInputRegion(const QRegion& region) {
    m_inputRegion = region;
    applyShapes();
}

void X11PanelWindow::setIgnoresMouseEvents(bool /*ignores*/) {}

void X11PanelWindow::setVisibleShape(const QRegion& region) {
    m_visibleShape = region;
    applyShapes();
}

bool X11PanelWindow::composited() const {
    return m_compositor.isRunning();
}

void X11PanelWindow::applyShapes() {
    if (!m_contents || m_closed || m_native == XCB_WINDOW_NONE) {
        return;
    }
    const double scale = m_contents->devicePixelRatio();
    const bool rescaled = scale != m_sentScale;
    m_sentScale = scale;

    std::optional<QRegion> bounds;
    if (!composited() && m_visibleShape) {
        bounds = m_visibleShape;
    }
    if (bounds != m_sentBounds || (rescaled && bounds)) {
        m_sentBounds = bounds;
        applyShape(XCB_SHAPE_SK_BOUNDING, bounds ? &*bounds : nullptr);
    }
    if (m_inputRegion != m_sentInput || (rescaled && m_inputRegion)) {
        m_sentInput = m_inputRegion;
        applyShape(XCB_SHAPE_SK_INPUT, m_inputRegion ? &*m_inputRegion : nullptr);
    }
}

void X11PanelWindow::applyShape(xcb_shape_kind_t kind, const QRegion* region) {
    auto* xcb = qtConnection();
    if (region == nullptr) {
        xcb_shape_mask(xcb, XCB_SHAPE_SO_SET, kind, m_native, 0, 0, XCB_PIXMAP_NONE);
    } else {
        const auto rectangles = shapeRectangles(*region, m_sentScale);
        xcb_shape_rectangles(xcb, XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_UNSORTED, m_native, 0, 0,
                             static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
    }
    xcb_flush(xcb);
}

bool X11PanelWindow::blursBehind() const {
    return m_compositor.blursBehind();
}

void X11PanelWindow::setBlurRegion(const QRegion& region) {
    m_blurRegion = region;
    applyBlur();
}

void X11PanelWindow::applyBlur() {
    if (!m_contents || m_native == XCB_WINDOW_NONE) {
        return;
    }
    const double scale = m_contents->devicePixelRatio();
    const QRegion wanted = blursBehind() ? m_blurRegion : QRegion();
    if (wanted == m_sentBlur && scale == m_sentBlurScale) {
        return;
    }
    m_sentBlur = wanted;
    m_sentBlurScale = scale;
    auto* xcb = qtConnection();
    const xcb_atom_t property = m_connection.atoms().kdeBlurBehindRegion;
    if (wanted.isEmpty()) {
        // An empty list would mean the whole window.
        xcb_delete_property(xcb, m_native, property);
    } else {
        std::vector<std::uint32_t> numbers;
        for (const auto& rectangle : shapeRectangles(wanted, scale)) {
            numbers.insert(numbers.end(),
                           {static_cast<std::uint32_t>(rectangle.x), static_cast<std::uint32_t>(rectangle.y),
                            rectangle.width, rectangle.height});
        }
        xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, m_native, property, XCB_ATOM_CARDINAL, 32,
                            static_cast<std::uint32_t>(numbers.size()), numbers.data());
    }
    xcb_flush(xcb);
}

void X11PanelWindow::orderFront() {
    if (!m_contents || m_closed) {
        return;
    }
    if (!m_contents->isVisible()) {
        m_contents->show();
    }
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(qtConnection(), m_native, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_flush(qtConnection());
}

void X11PanelWindow::popUpMenu(Menu menu, QPoint location, std::function<void()> closed) {
    if (!m_contents || m_closed) {
        return;
    }
    const QPoint corner = m_contents->mapToGlobal(location);
    QtMenu::popUp(std::move(menu), {corner, m_screens.frameNear(corner), X11Grab::take}, *this,
                  std::move(closed));
}

void X11PanelWindow::close() {
    if (m_closed) {
        return;
    }
    m_closed = true;
    QtMenu::drop(*this);
    m_frameCheck.stop();
    if (m_contents) {
        m_contents->hide();
    }
}

bool X11PanelWindow::isVisible() const {
    return m_contents && !m_closed && m_contents->isVisible();
}

QImage X11PanelWindow::grab() {
    return m_contents && !m_closed ? m_contents->grab().toImage() : QImage();
}

} // namespace quillary
