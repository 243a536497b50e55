#pragma once

#include "platform/x11/X11Connection.h"

#include <QObject>

#include <memory>
#include <vector>

namespace quillary {

class ScheduledTask;
class Scheduler;

/// The windows that the window manager manages (EWMH, _NET_CLIENT_LIST), including docks and this program's
/// own. Selects the property and structure events of all windows that are not our own, so that the
/// connection reports them to its other users too.
class X11ClientList final : public QObject {
    Q_OBJECT

public:
    X11ClientList(X11Connection& connection, Scheduler& scheduler);
    ~X11ClientList() override;

    /// In the order in which they were first mapped. Empty without an EWMH window manager. While the window
    /// manager restarts (for at most restartGrace), its last list less the windows destroyed since.
    [[nodiscard]] const std::vector<xcb_window_t>& windows() const { return m_windows; }
    /// From the bottom of the stack to the top; empty without an EWMH window manager. A round trip.
    [[nodiscard]] std::vector<xcb_window_t> stackingOrder() const;
    /// Whether a window manager that follows EWMH is running.
    [[nodiscard]] bool managed() const { return m_checkWindow != XCB_WINDOW_NONE; }

    /// How long the list is kept after the window manager has disappeared, in seconds.
    static constexpr double restartGrace = 2.0;
    /// How long a new window manager may take to adopt the windows of the last one, in seconds.
    static constexpr double adoptionTime = 0.3;

Q_SIGNALS:
    /// `windows` changed.
    void changed();
    /// `managed` changed.
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
