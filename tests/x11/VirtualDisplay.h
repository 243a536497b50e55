#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <xcb/xcb.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <sys/types.h>

namespace quillary::test {

/// A real X server for one test, with nothing on it but what the test starts. Everything it started is gone
/// when it is destroyed, and dies with the test process whatever happens. Make it before QApplication,
/// destroy it after: it sets DISPLAY for the whole process. Coordinates and sizes are device pixels.
class VirtualDisplay {
public:
    enum class Server {
        /// Xvfb: several monitors, which can be plugged and unplugged; at least one is always there.
        xvfb,
        /// Xorg with the dummy driver: outputs with modes, which can all be switched off. Needs root.
        xorgDummy,
    };

    explicit VirtualDisplay(Server server = Server::xvfb, QSize size = {2400, 900});
    ~VirtualDisplay();
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    /// Whether the server runs; when it does not the test cannot go on (`error` says why).
    [[nodiscard]] bool isRunning() const { return m_connection != nullptr; }
    [[nodiscard]] const std::string& error() const { return m_failure; }
    /// What DISPLAY was set to.
    [[nodiscard]] const std::string& name() const { return m_displayName; }
    /// The tester's own connection, for requests that other clients would make; null when the server does not
    /// run.
    [[nodiscard]] xcb_connection_t* xcb() const { return m_connection; }
    [[nodiscard]] xcb_window_t root() const { return m_rootWindow; }
    /// Ends the server abruptly.
    void killServer();

    /// Plugs two monitors: LEFT, 1280×900 at the origin and primary, and RIGHT, 1120×800 beside it.
    void plugTwoMonitors();
    enum class Rank { primary, secondary };
    /// Plugs a monitor, or changes the one of that name.
    void plugMonitor(const std::string& name, const QRect& geometry, Rank rank = Rank::secondary);
    void unplugMonitor(const std::string& name);

    /// Starts a program on this display; returns its process, 0 when it cannot be started. Its output goes to
    /// the test's standard error when QUILLARY_TEST_VERBOSE is set, else nowhere.
    pid_t start(const std::vector<std::string>& command);
    /// Ends a process that `start` began and waits for its end.
    void stop(pid_t process);
    /// Runs a program to its end; returns its exit status, -1 when it failed or took longer than the
    /// deadline.
    int run(const std::vector<std::string>& command);

    /// openbox, up and ready (it shows itself by EWMH).
    bool startWindowManager();
    void stopWindowManager();
    /// picom with the xrender backend, up and ready (it owns the compositing selection).
    bool startCompositor();
    void stopCompositor();

    /// Moves the pointer as a mouse would: it makes raw motion.
    void movePointer(QPoint position);
    /// Puts the pointer somewhere as a program would: no raw motion.
    void warpPointer(QPoint position);
    void pressButton(int button);
    void releaseButton(int button);
    /// Moves there, presses and releases.
    void click(QPoint position, int button = 1);

    /// Presses and releases a key, by its keysym on the unshifted layout, while a second one is held.
    void typeKey(xcb_keysym_t key, xcb_keysym_t held = XCB_NO_SYMBOL);

    /// What the screen shows; with a compositor, what that made.
    [[nodiscard]] QImage screenshot() const;
    [[nodiscard]] QRgb pixel(QPoint position) const;

    /// A property's 32-bit items; empty when it is absent.
    [[nodiscard]] std::vector<std::uint32_t> numbers(xcb_window_t window, const std::string& property) const;
    /// The names of the atoms in a property.
    [[nodiscard]] std::vector<std::string> atomNames(xcb_window_t window, const std::string& property) const;
    [[nodiscard]] xcb_atom_t atom(const std::string& name) const;
    /// A window's place on the root window, without borders; null when it has gone.
    [[nodiscard]] QRect geometry(xcb_window_t window) const;
    /// Whether the window and all its parents are mapped.
    [[nodiscard]] bool isViewable(xcb_window_t window) const;
    [[nodiscard]] xcb_window_t focusedWindow() const;

    /// How long conditions may take on a slow machine, in milliseconds.
    static constexpr int deadline = 15000;
    /// Runs the event loop, when there is one, until the condition holds; false at the deadline.
    static bool waitUntil(const std::function<bool()>& condition, int milliseconds = deadline);
    /// Runs the event loop for a time: for what must not happen.
    static void runFor(int milliseconds);

private:
    bool managesNewWindows();
    void fakeInput(std::uint8_t type, std::uint8_t detail, QPoint position);
    void sync() const;

    std::map<pid_t, std::string> m_processes;
    pid_t m_serverProcess = 0;
    pid_t m_windowManager = 0;
    pid_t m_compositor = 0;
    std::string m_displayName;
    std::string m_failure;
    std::string m_configFile;
    xcb_connection_t* m_connection = nullptr;
    xcb_window_t m_rootWindow = XCB_WINDOW_NONE;
};

} // namespace quillary::test
