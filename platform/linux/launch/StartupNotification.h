#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace quillary {

/// Where and when the user asked for a program. Safe to use on another thread and after the object that
/// returned it.
struct StartupOrigin {
    /// The moment of the click or key, in milliseconds of the window system's clock; 0 when unknown.
    std::uint32_t time = 0;
    /// The window system's number of the screen, which may span several monitors.
    int screen = 0;
    /// Reads the window system's clock, in milliseconds; 0 when that fails. Blocks until the answer. May be
    /// empty.
    std::function<std::uint32_t()> clock;
    /// Broadcasts one message of the Startup Notification protocol. Blocks until it is sent. May be empty.
    std::function<void(const std::string& message)> broadcast;
};

/// Notifies the desktop that a program is being started (freedesktop.org, Startup Notification), so that it
/// shows a busy cursor and gives the new window the focus, unless the user has activated another one since.
class StartupNotification {
public:
    StartupNotification() = default;
    StartupNotification(const StartupNotification&) = delete;
    StartupNotification& operator=(const StartupNotification&) = delete;
    virtual ~StartupNotification() = default;

    /// The origin of a program that is started now. For the main thread.
    [[nodiscard]] virtual StartupOrigin origin() const = 0;
};

} // namespace quillary
