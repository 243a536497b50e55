#pragma once

#include <string>

using GAppLaunchContext = struct _GAppLaunchContext; // NOLINT(bugprone-reserved-identifier)

namespace quillary {

/// A new launch context for GIO, which the caller releases: it gives a startup notification id to entries
/// that ask for one, and our environment without the variables that are about this process.
[[nodiscard]] GAppLaunchContext* makeLaunchContext();

/// A new id of the XDG Startup Notification standard: unique, ending in "_TIME<milliseconds>". The time is
/// the monotonic clock, which local X servers take their timestamps from.
[[nodiscard]] std::string makeStartupId();

} // namespace quillary
