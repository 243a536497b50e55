#pragma once

#include "platform/x11/X11Connection.h"

#include <QObject>

#include <memory>
#include <vector>

namespace quillary {

class ScheduledTask;
class Scheduler;

/// The windows that the window manager manages (EWMH, _NET_CLIENT_LIST), this program's own and docks among
/// them. It selects property changes of all that are not our own, so that others see them among the
/// connection's events.
class X11ClientList final : public QObject {
    Q_OBJECT

public:
    X11ClientList(X11Connection& connection, Scheduler& scheduler);
    ~X11ClientList() override;

    /// In the order in which they were first shown. Empty without an EWMH window manager; while one is being
    /// restarted (up to restartGrace) the list of the old one stands, less the windows that have gone.
    [[nodiscard]] const std::vector<xcb_window_t>& windows() const { return m_windows; }
    /// From the bottom to the top of the stack; empty without an EWMH window manager.
    [[nodiscard]] std::vector<xcb_window_t> stackingOrder() const;
    /// Whether a window manager that follows EWMH is running.
    [[nodiscard]] bool managed() const { return m_checkWindow != XCB_WINDOW_NONE; }

    /// How long a missing window manager is waited for before its windows are given up, in seconds.
    static constexpr double restartGrace = 2.0;
    /// How long a new window manager gets to adopt the windows of the last one, in seconds.
    static constexpr double adoptionTime = 0.3;

Q_SIGNALS:
    /// The windows changed.
    void changed();
    /// A window manager came or went.
    void managedChanged();

private:
    void handleEvent(const xcb_generic_event_t* event);
    void handleSettled();
    void update();
    [[nodiscard]] xcb_window_t readCheckWindow();
    void setWindows(std::vector<xcb_window_t> windows);
    void select(xcb_window_t window, std::uint32_t mask);

    X11Connection& m_connection;
    Scheduler& m_scheduler;
    xcb_window_t m_checkWindow = XCB_WINDOW_NONE;
    std::vector<xcb_window_t> m_windows;
    std::unique_ptr<ScheduledTask> m_later;
    bool m_stale = false;
};

} // namespace quillary
