#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace quillary {

/// Where and when the user asked for a program. A value that may go to another thread: it holds nothing of
/// the object that gave it.
struct StartupOrigin {
    /// The moment of the click or key, in milliseconds of the window system's clock; 0 when it isn't known.
    std::uint32_t time = 0;
    /// The window system's number of the screen, which may span several monitors.
    int screen = 0;
    /// The window system's clock now, in milliseconds; 0 when it can't be asked. Waits for the answer. May be
    /// empty.
    std::function<std::uint32_t()> clock;
    /// Sends one message of the Startup Notification protocol to everybody who listens. Waits until it is
    /// out. May be empty.
    std::function<void(const std::string& message)> broadcast;
};

/// How the desktop is told that a program is being started (freedesktop.org, Startup Notification), by which
/// it shows that it waits and gives the new window the focus unless the user has turned to another one since.
class StartupNotification {
public:
    StartupNotification() = default;
    StartupNotification(const StartupNotification&) = delete;
    StartupNotification& operator=(const StartupNotification&) = delete;
    virtual ~StartupNotification() = default;

    /// The origin of what is started now. For the main thread.
    [[nodiscard]] virtual StartupOrigin origin() const = 0;
};

} // namespace quillary
