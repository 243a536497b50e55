#pragma once

#include "platform/linux/windows/WindowSource.h"
#include "platform/x11/X11FullScreenWatch.h"
#include "platform/x11/X11WindowReader.h"

#include <unordered_map>
#include <unordered_set>

namespace quillary {

class ScheduledTask;
class Scheduler;
class X11ClientList;
class X11Screens;

/// Other programs' windows as the EWMH window manager lists them; empty without an EWMH window manager.
class X11WindowSource final : public WindowSource {
    Q_OBJECT

public:
    X11WindowSource(X11Connection& connection, X11ClientList& clients, const X11Screens& screens,
                    Scheduler& scheduler);
    ~X11WindowSource() override;

    [[nodiscard]] std::vector<WindowInfo> windows() const override;
    [[nodiscard]] std::optional<std::uint64_t> activeWindow() const override { return m_activeWindow; }
    [[nodiscard]] bool isOwnWindowActive() const override { return m_ownWindowActive; }
    [[nodiscard]] std::vector<std::uint64_t> stackingOrder() const override;
    [[nodiscard]] std::optional<QRectF> fullScreenFrame() const override { return m_fullScreen.frame(); }
    void activate(std::uint64_t id) override;
    void close(std::uint64_t id) override;

    /// How long no window has to be active before activeWindowChanged is emitted, in seconds: window managers
    /// briefly report no active window between two windows.
    static constexpr double focusGap = 0.15;

private:
    void handleEvent(const xcb_generic_event_t* event);
    void handleSettled();
    void updateWindows();
    void updateActive();
    void setFocused(xcb_window_t window);
    void showDesktopOf(xcb_window_t window);
    [[nodiscard]] bool wmSupports(xcb_atom_t feature) const;
    [[nodiscard]] bool acceptsDelete(xcb_window_t window) const;

    X11Connection& m_connection;
    X11ClientList& m_clients;
    Scheduler& m_scheduler;
    X11WindowReader m_reader;
    std::vector<WindowInfo> m_windows;
    std::unordered_set<xcb_window_t> m_stale;
    X11FullScreenWatch m_fullScreen;
    // May be one of our own windows.
    xcb_window_t m_focused = XCB_WINDOW_NONE;
    std::optional<std::uint64_t> m_activeWindow;
    bool m_ownWindowActive = false;
    std::unique_ptr<ScheduledTask> m_loseFocus;
    bool m_activeStale = false;
};

} // namespace quillary
