#import "platform/macos/MacPanelWindow.h"

#import "platform/macos/MacBlur.h"
#include "platform/macos/MacPopUpMenu.h"
#include "platform/macos/NonactivatingCreation.h"

#include <QEvent>
#include <QWidget>

#include <utility>

#import <AppKit/AppKit.h>

namespace quillary {

namespace {

constexpr NSWindowCollectionBehavior onAllSpaces = NSWindowCollectionBehaviorCanJoinAllSpaces |
                                                   NSWindowCollectionBehaviorStationary |
                                                   NSWindowCollectionBehaviorIgnoresCycle;
static_assert(onAllSpaces == 81);
static_assert(NSWindowStyleMaskNonactivatingPanel == 128);

NSWindow* windowOf(const QWidget& widget) {
    // internalWinId, because winId would create a window.
    if (widget.internalWinId() == 0) {
        return nil;
    }
    return [(__bridge NSView*)reinterpret_cast<void*>(widget.internalWinId()) window];
}

} // namespace

struct MacPanelWindow::Native {
    MacBlur blur;
};

MacPanelWindow::MacPanelWindow(QWidget& contents)
    : m_native(std::make_unique<Native>()), m_contents(&contents) {
    // For these flags Qt creates an NSPanel. It can become the key window.
    contents.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    contents.setAttribute(Qt::WA_TranslucentBackground);
    contents.setAttribute(Qt::WA_ShowWithoutActivating);
    contents.setAttribute(Qt::WA_MacAlwaysShowToolWindow);
    contents.installEventFilter(this);
    const NonactivatingCreation creation;
    contents.winId();
    dress();
}

MacPanelWindow::~MacPanelWindow() {
    MacPopUpMenu::drop(*this);
    if (m_contents) {
        m_contents->removeEventFilter(this);
    }
}

void MacPanelWindow::dress() {
    NSWindow* window = m_contents && !m_closed ? windowOf(*m_contents) : nil;
    if (window == nil) {
        return;
    }
    [window setStyleMask:NSWindowStyleMaskNonactivatingPanel];
    if ([window isKindOfClass:[NSPanel class]]) {
        [static_cast<NSPanel*>(window) setFloatingPanel:YES];
    }
    [window setLevel:NSFloatingWindowLevel];
    [window setCollectionBehavior:onAllSpaces];
    [window setBackgroundColor:[NSColor clearColor]];
    [window setOpaque:NO];
    [window setHasShadow:NO];
    [window setHidesOnDeactivate:NO];
    [window setMovable:NO];
    [window setAcceptsMouseMovedEvents:YES];
    [window setIgnoresMouseEvents:m_ignoresMouse ? YES : NO];
    applyBlur();
}

bool MacPanelWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_contents) {
        switch (event->type()) {
        // At these events Qt recreates the window or resets its properties.
        case QEvent::WinIdChange:
        case QEvent::Show:
            dress();
            break;
        case QEvent::Move:
        case QEvent::Resize:
            if (frame() != m_reportedFrame) {
                m_reportedFrame = frame();
                Q_EMIT frameChanged();
            }
            break;
        // Event monitors need not receive the events of a window's tracking areas and of drags.
        case QEvent::Enter:
        case QEvent::Leave:
        case QEvent::MouseMove:
        case QEvent::HoverMove:
        case QEvent::DragEnter:
        case QEvent::DragMove:
            Q_EMIT pointerCrossed();
            break;
        default:
            break;
        }
    }
    return PanelWindow::eventFilter(watched, event);
}

void MacPanelWindow::setFrame(const QRect& frame) {
    if (frame == m_frame || m_closed) {
        return;
    }
    m_frame = frame;
    m_reportedFrame = frame;
    if (m_contents) {
        m_contents->setGeometry(frame);
        applyBlur();
    }
}

QRect MacPanelWindow::frame() const {
    return isVisible() ? m_contents->geometry() : m_frame;
}

void MacPanelWindow::setInputRegion(const QRegion& /*region*/) {}

void MacPanelWindow::setIgnoresMouseEvents(bool ignores) {
    if (ignores == m_ignoresMouse) {
        return;
    }
    m_ignoresMouse = ignores;
    if (m_contents && !m_closed) {
        [windowOf(*m_contents) setIgnoresMouseEvents:ignores ? YES : NO];
    }
}

void MacPanelWindow::setVisibleShape(const QRegion& /*region*/) {}

void MacPanelWindow::setBlurRegion(const QRegion& region) {
    m_blurRegion = region;
    applyBlur();
}

void MacPanelWindow::applyBlur() {
    NSWindow* window = m_contents && !m_closed ? windowOf(*m_contents) : nil;
    if (window != nil) {
        m_native->blur.show(m_blurRegion, m_frame.size(), window);
    }
}

void MacPanelWindow::orderFront() {
    if (!m_contents || m_closed) {
        return;
    }
    if (!m_contents->isVisible()) {
        m_contents->show();
        dress();
    }
    [windowOf(*m_contents) orderFrontRegardless];
}

void MacPanelWindow::popUpMenu(Menu menu, QPoint location, std::function<void()> closed) {
    if (m_contents && !m_closed) {
        MacPopUpMenu::popUp(std::move(menu), *m_contents, location, *this, std::move(closed));
    }
}

void MacPanelWindow::close() {
    if (m_closed) {
        return;
    }
    m_closed = true;
    MacPopUpMenu::drop(*this);
    if (m_contents) {
        m_contents->hide();
    }
}

bool MacPanelWindow::isVisible() const {
    return m_contents && !m_closed && m_contents->isVisible();
}

QImage MacPanelWindow::grab() {
    return m_contents && !m_closed ? m_contents->grab().toImage() : QImage();
}

} // namespace quillary
