#pragma once

#include "platform/PanelWindow.h"
#include "platform/x11/X11Connection.h"

#include <QPointer>
#include <QTimer>

#include <xcb/shape.h>

#include <optional>

class QWindow;

namespace quillary {

class X11Compositor;
class X11Screens;

/// A dock's window under an EWMH window manager: of type dock, above other windows, on all desktops, not in
/// task bars or pagers, with an input region by the SHAPE extension. It reserves no space.
///
/// Without a compositor, the window's bounding shape is the visible shape. The X server delivers no clicks
/// outside the bounding shape, even inside the input region.
///
/// When the window manager moves or resizes the window, the frame is requested again a few times, then left
/// as it is until the frame or the screens change.
class X11PanelWindow final : public PanelWindow {
    Q_OBJECT

public:
    /// `contents` must be a top-level widget that was never shown.
    X11PanelWindow(QWidget& contents, X11Connection& connection, const X11Compositor& compositor,
                   const X11Screens& screens);
    ~X11PanelWindow() override;

    void setFrame(const QRect& frame) override;
    [[nodiscard]] QRect frame() const override;
    void setInputRegion(const QRegion& region) override;
    /// No-op: the input region is exact.
    void setIgnoresMouseEvents(bool ignores) override;
    void setVisibleShape(const QRegion& region) override;
    [[nodiscard]] bool composited() const override;
    [[nodiscard]] bool blursBehind() const override;
    void setBlurRegion(const QRegion& region) override;
    void orderFront() override;
    void popUpMenu(Menu menu, QPoint location, std::function<void()> closed) override;
    void close() override;
    [[nodiscard]] bool isVisible() const override;
    [[nodiscard]] QImage grab() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] xcb_connection_t* qtConnection() const;
    void dress();
    void setProperties();
    void followCrossings();
    void handleEvent(const xcb_generic_event_t* event);
    void applyFrame();
    void applyShapes();
    void applyBlur();
    void applyShape(xcb_shape_kind_t kind, const QRegion* region);
    void checkFrame();
    void screensChanged();

    X11Connection& m_connection;
    const X11Compositor& m_compositor;
    const X11Screens& m_screens;
    QPointer<QWidget> m_contents;
    QPointer<QWindow> m_watchedWindow;
    xcb_window_t m_native = XCB_WINDOW_NONE;
    // The frame that is wanted.
    QRect m_frame;
    // The frame that users of the window know.
    QRect m_reportedFrame;
    std::optional<QRegion> m_inputRegion;
    std::optional<QRegion> m_visibleShape;
    QRegion m_blurRegion;
    // The state last sent to the server. Sending the same shape again would cause enter and leave events.
    std::optional<QRegion> m_sentInput;
    std::optional<QRegion> m_sentBounds;
    QRegion m_sentBlur;
    double m_sentBlurScale = 0.0;
    double m_sentScale = 0.0;
    QTimer m_frameCheck;
    int m_frameRetries = 0;
    bool m_closed = false;
};

} // namespace quillary
