#pragma once

#include "platform/x11/X11Connection.h"

#include <QObject>
#include <QRect>
#include <QRectF>

#include <optional>

namespace quillary {

class X11Screens;

/// Whether one window is full-screen (EWMH, _NET_WM_STATE_FULLSCREEN), and what it covers. Asks the server
/// when the window, its state or, while it is full-screen, its place changes.
///
/// Its place tells on which monitors it is: a window manager that heeds _NET_WM_FULLSCREEN_MONITORS gives it
/// the place of these, and to any other the property means nothing.
class X11FullScreenWatch final : public QObject {
    Q_OBJECT

public:
    X11FullScreenWatch(X11Connection& connection, const X11Screens& screens);

    /// Watches this window, which may be our own, and no longer the one before; XCB_WINDOW_NONE for none.
    void follow(xcb_window_t window);
    /// What the window covers, in global points; absent when it is not full-screen or has gone.
    [[nodiscard]] std::optional<QRectF> frame() const { return m_frame; }

Q_SIGNALS:
    /// The frame is another one than before.
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
