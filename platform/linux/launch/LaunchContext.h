#pragma once

#include "platform/linux/launch/StartupNotification.h"

#include <string>

// GIO's types; its headers stay out of ours.
using GAppLaunchContext = struct _GAppLaunchContext; // NOLINT(clang-diagnostic-reserved-identifier)
using GDesktopAppInfo = struct _GDesktopAppInfo;     // NOLINT(clang-diagnostic-reserved-identifier)

namespace quillary {

/// The launch context that GIO takes for one launch: our environment without the variables that concern this
/// process only, and startup notification.
///
/// The desktop is notified for entries with StartupNotify=true, and for those with StartupWMClass and without
/// StartupNotify; their programs get DESKTOP_STARTUP_ID and XDG_ACTIVATION_TOKEN.
class LaunchContext {
public:
    /// Notifies the desktop immediately in the cases in which GIO would not do so later.
    LaunchContext(GDesktopAppInfo* entry, StartupOrigin origin);
    LaunchContext(const LaunchContext&) = delete;
    LaunchContext& operator=(const LaunchContext&) = delete;
    ~LaunchContext();

    [[nodiscard]] GAppLaunchContext* get() const { return m_context; }
    /// Notifies the desktop, in the cases in which GIO does not, that the launch has failed.
    void fail();

private:
    GAppLaunchContext* m_context;
};

/// A new startup id: unique, ending in "_TIME<milliseconds>". The time is the origin's; if that is unknown,
/// the window system's current time; without a window system, the monotonic clock's.
[[nodiscard]] std::string makeStartupId(const StartupOrigin& origin);

} // namespace quillary
