#include "platform/x11/X11PanelWindow.h"

#include "platform/qt/QtMenu.h"
#include "platform/x11/ShapeRectangles.h"
#include "platform/x11/X11Compositor.h"
#include "platform/x11/X11Grab.h"
#include "platform/x11/X11InputSelection.h"
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

// A window manager gets this long to place the window as it was told, in milliseconds.
constexpr int frameCheckDelay = 300;

// One that still places it elsewhere after so many reminders insists on it: going on would never end.
constexpr int mostFrameRetries = 5;

template<std::size_t count>
void writeProperty(xcb_connection_t* xcb, xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                   const std::array<std::uint32_t, count>& values) {
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, window, property, type, 32, count, values.data());
}

} // namespace

X11PanelWindow::X11PanelWindow(QWidget& widget, X11Connection& server, const X11Compositor& compositing,
                               const X11Screens& screenList)
    : connection(server), compositor(compositing), screens(screenList), contents(&widget) {
    widget.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                          Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint);
    widget.setAttribute(Qt::WA_TranslucentBackground);
    widget.setAttribute(Qt::WA_ShowWithoutActivating);
    widget.installEventFilter(this);
    dress();

    frameCheck.setSingleShot(true);
    frameCheck.setInterval(frameCheckDelay);
    connect(&frameCheck, &QTimer::timeout, this, &X11PanelWindow::checkFrame);
    connect(&connection, &X11Connection::eventReceived, this, &X11PanelWindow::handleEvent);
    connect(&compositor, &X11Compositor::changed, this, [this] {
        applyBlur();
        applyShapes();
        Q_EMIT compositedChanged();
    });
    // Qt maps points to pixels by the screens it knows: once it knows others, the same frame may lie
    // elsewhere.
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &X11PanelWindow::screensChanged);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &X11PanelWindow::screensChanged,
            Qt::QueuedConnection);
}

X11PanelWindow::~X11PanelWindow() {
    if (contents) {
        contents->removeEventFilter(this);
    }
    if (watchedWindow) {
        watchedWindow->removeEventFilter(this);
    }
}

xcb_connection_t* X11PanelWindow::qtConnection() const {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

void X11PanelWindow::dress() {
    if (!contents || closed || qtConnection() == nullptr) {
        return;
    }
    const auto window = static_cast<xcb_window_t>(contents->winId());
    if (watchedWindow != contents->windowHandle()) {
        watchedWindow = contents->windowHandle();
        watchedWindow->installEventFilter(this);
        connect(watchedWindow, &QWindow::screenChanged, this, &X11PanelWindow::applyShapes);
    }
    const bool created = window != native;
    native = window;
    setProperties();
    if (created) {
        sentInput.reset();
        sentBlur = {};
        sentBounds.reset();
        followCrossings();
        // The pointer monitor tells of movements once a frame; a fast mouse would wake two threads a thousand
        // times a second.
        X11InputSelection::leaveOutMotion(qtConnection(), native);
    }
    applyBlur();
    applyShapes();
}

void X11PanelWindow::setProperties() {
    const auto& atoms = connection.atoms();
    auto* xcb = qtConnection();
    writeProperty(xcb, native, atoms.netWmWindowType, XCB_ATOM_ATOM, std::array{atoms.netWmWindowTypeDock});
    writeProperty(xcb, native, atoms.netWmState, XCB_ATOM_ATOM,
                  std::array{atoms.netWmStateAbove, atoms.netWmStateSticky, atoms.netWmStateSkipTaskbar,
                             atoms.netWmStateSkipPager});
    writeProperty(xcb, native, atoms.netWmDesktop, XCB_ATOM_CARDINAL, std::array{allDesktops});
    xcb_flush(xcb);
}

void X11PanelWindow::followCrossings() {
    // The window must exist for the server before another connection can speak of it: a round trip makes
    // sure.
    auto* xcb = qtConnection();
    const XcbPointer<xcb_get_geometry_reply_t> reply(
        xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, native), nullptr));
    const std::uint32_t mask = XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW;
    xcb_change_window_attributes(connection.xcb(), native, XCB_CW_EVENT_MASK, &mask);
    connection.flush();
}

void X11PanelWindow::handleEvent(const xcb_generic_event_t* event) {
    const int kind = eventKind(event);
    if (!closed && (kind == XCB_ENTER_NOTIFY || kind == XCB_LEAVE_NOTIFY) &&
        eventAs<xcb_enter_notify_event_t>(event)->event == native) {
        Q_EMIT pointerCrossed();
    }
}

bool X11PanelWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == contents) {
        switch (event->type()) {
        case QEvent::WinIdChange:
            if (contents->internalWinId() != 0) {
                dress();
            }
            break;
        case QEvent::Show:
            // Window managers take the states off a window that was hidden.
            if (!event->spontaneous()) {
                dress();
            }
            break;
        case QEvent::Move:
        case QEvent::Resize:
            if (contents->isVisible() && contents->geometry() != target) {
                frameCheck.start();
            }
            break;
        default:
            break;
        }
    } else if (watched == watchedWindow && event->type() == QEvent::PlatformSurface &&
               dynamic_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType() ==
                   QPlatformSurfaceEvent::SurfaceCreated) {
        dress();
    }
    return PanelWindow::eventFilter(watched, event);
}

void X11PanelWindow::setFrame(const QRect& frame) {
    if (frame == target || closed) {
        return;
    }
    target = frame;
    frameRetries = 0;
    applyFrame();
}

void X11PanelWindow::applyFrame() {
    if (contents && !closed && target.isValid()) {
        contents->setGeometry(target);
        applyShapes();
    }
}

void X11PanelWindow::checkFrame() {
    if (contents && contents->isVisible() && contents->geometry() != target &&
        frameRetries < mostFrameRetries) {
        ++frameRetries;
        applyFrame();
    }
}

void X11PanelWindow::screensChanged() {
    frameRetries = 0;
    applyFrame();
}

void X11PanelWindow::setInputRegion(const QRegion& region) {
    inputRegion = region;
    applyShapes();
}

void X11PanelWindow::setIgnoresMouseEvents(bool /*ignores*/) {}

void X11PanelWindow::setVisibleShape(const QRegion& region) {
    visibleShape = region;
    applyShapes();
}

bool X11PanelWindow::composited() const {
    return compositor.isRunning();
}

void X11PanelWindow::applyShapes() {
    if (!contents || closed || native == XCB_WINDOW_NONE) {
        return;
    }
    const double scale = contents->devicePixelRatio();
    const bool rescaled = scale != sentScale;
    sentScale = scale;

    std::optional<QRegion> bounds;
    if (!composited() && visibleShape) {
        bounds = visibleShape;
    }
    if (bounds != sentBounds || (rescaled && bounds)) {
        sentBounds = bounds;
        applyShape(XCB_SHAPE_SK_BOUNDING, bounds ? &*bounds : nullptr);
    }
    if (inputRegion != sentInput || (rescaled && inputRegion)) {
        sentInput = inputRegion;
        applyShape(XCB_SHAPE_SK_INPUT, inputRegion ? &*inputRegion : nullptr);
    }
}

void X11PanelWindow::applyShape(xcb_shape_kind_t kind, const QRegion* region) {
    auto* xcb = qtConnection();
    ++shapeRequestCount;
    if (region == nullptr) {
        xcb_shape_mask(xcb, XCB_SHAPE_SO_SET, kind, native, 0, 0, XCB_PIXMAP_NONE);
    } else {
        const auto rectangles = shapeRectangles(*region, sentScale);
        xcb_shape_rectangles(xcb, XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_UNSORTED, native, 0, 0,
                             static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
    }
    xcb_flush(xcb);
}

bool X11PanelWindow::blursBehind() const {
    return compositor.blursBehind();
}

void X11PanelWindow::setBlurRegion(const QRegion& region) {
    blurRegion = region;
    applyBlur();
}

void X11PanelWindow::applyBlur() {
    if (!contents || native == XCB_WINDOW_NONE) {
        return;
    }
    const double scale = contents->devicePixelRatio();
    const QRegion wanted = blursBehind() ? blurRegion : QRegion();
    if (wanted == sentBlur && scale == sentBlurScale) {
        return;
    }
    sentBlur = wanted;
    sentBlurScale = scale;
    auto* xcb = qtConnection();
    const xcb_atom_t property = connection.atoms().kdeBlurBehindRegion;
    if (wanted.isEmpty()) {
        // An empty list would mean the whole window.
        xcb_delete_property(xcb, native, property);
    } else {
        std::vector<std::uint32_t> numbers;
        for (const auto& rectangle : shapeRectangles(wanted, scale)) {
            numbers.insert(numbers.end(),
                           {static_cast<std::uint32_t>(rectangle.x), static_cast<std::uint32_t>(rectangle.y),
                            rectangle.width, rectangle.height});
        }
        xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, native, property, XCB_ATOM_CARDINAL, 32,
                            static_cast<std::uint32_t>(numbers.size()), numbers.data());
    }
    xcb_flush(xcb);
}

void X11PanelWindow::orderFront() {
    if (!contents || closed) {
        return;
    }
    if (!contents->isVisible()) {
        contents->show();
    }
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(qtConnection(), native, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_flush(qtConnection());
}

void X11PanelWindow::popUpMenu(Menu menu, QPoint location, std::function<void()> whenClosed) {
    if (!contents || closed) {
        return;
    }
    const QPoint corner = contents->mapToGlobal(location);
    QtMenu::popUp(std::move(menu), {corner, screens.frameNear(corner), X11Grab::take}, *this,
                  std::move(whenClosed));
}

void X11PanelWindow::close() {
    if (closed) {
        return;
    }
    closed = true;
    QtMenu::drop(*this);
    frameCheck.stop();
    if (contents) {
        contents->hide();
    }
}

bool X11PanelWindow::isVisible() const {
    return contents && !closed && contents->isVisible();
}

QImage X11PanelWindow::grab() {
    return contents && !closed ? contents->grab().toImage() : QImage();
}

} // namespace quillary
