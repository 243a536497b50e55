#pragma once

#include "platform/x11/X11Connection.h"

#include <QObject>
#include <QRect>
#include <QRectF>

#include <optional>

namespace quillary {

class X11Screens;

/// Whether one window is full-screen (EWMH, _NET_WM_STATE_FULLSCREEN), and the area it covers. Queries the
/// server when the window, its state or, while it is full-screen, its geometry changes.
///
/// The geometry alone determines the monitors: a window manager that supports _NET_WM_FULLSCREEN_MONITORS
/// resizes the window to them, and any other ignores that property.
class X11FullScreenWatch final : public QObject {
    Q_OBJECT

public:
    X11FullScreenWatch(X11Connection& connection, const X11Screens& screens);

    /// Watches this window, which may be our own, instead of the previous one; XCB_WINDOW_NONE for none.
    void follow(xcb_window_t window);
    /// The area that the window covers, in global points; absent when it is not full-screen or is destroyed.
    [[nodiscard]] std::optional<QRectF> frame() const { return m_frame; }

Q_SIGNALS:
    /// `frame` changed.
    void changed();

private:
    void handleEvent(const xcb_generic_event_t* event);
    void handleSettled();
    void selectOwn();
    void readState();
    void readPlace();
    void update();

    X11Connection& m_connection;
    const X11Screens& m_screens;
    xcb_window_t m_watched = XCB_WINDOW_NONE;
    bool m_fullScreen = false;
    bool m_stateStale = false;
    bool m_placeStale = false;
    // On the root window, in device pixels.
    QRect m_place;
    std::optional<QRectF> m_frame;
};

} // namespace quillary
