#pragma once

#include "platform/linux/launch/StartupNotification.h"

#include <string>

// GIO's types; its headers stay out of ours.
using GAppLaunchContext = struct _GAppLaunchContext; // NOLINT(bugprone-reserved-identifier)
using GDesktopAppInfo = struct _GDesktopAppInfo;     // NOLINT(bugprone-reserved-identifier)

namespace quillary {

/// What GIO needs to know for one launch: our environment without the variables that are about this process,
/// and the startup notification.
///
/// The desktop is told of entries that ask for it by StartupNotify, or name their window by StartupWMClass
/// and say nothing of StartupNotify; their programs get DESKTOP_STARTUP_ID and XDG_ACTIVATION_TOKEN.
class LaunchContext {
public:
    /// Tells the desktop at once where GIO wouldn't later on.
    LaunchContext(GDesktopAppInfo* entry, StartupOrigin origin);
    LaunchContext(const LaunchContext&) = delete;
    LaunchContext& operator=(const LaunchContext&) = delete;
    ~LaunchContext();

    [[nodiscard]] GAppLaunchContext* get() const { return m_context; }
    /// Tells the desktop, where GIO doesn't, that nothing was started.
    void fail();

private:
    GAppLaunchContext* m_context;
};

/// A new startup id: unique, ending in "_TIME<milliseconds>". The moment is the origin's; else the window
/// system's clock now; else, without a window system, the monotonic clock.
[[nodiscard]] std::string makeStartupId(const StartupOrigin& origin);

} // namespace quillary
