#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quillary {

/// How an application takes part in the desktop.
enum class ActivationPolicy {
    /// Has windows for the user and appears in docks.
    regular,
    /// A background utility that shows windows occasionally.
    accessory,
    /// No user interface at all.
    prohibited,
};

/// One entry of the system's list of running applications.
struct RunningApplication {
    /// Identifies the application to the backend until it ends; never reused while this program runs.
    std::uint64_t handle = 0;
    ActivationPolicy policy = ActivationPolicy::regular;
    /// Absolute path of the bundle or desktop entry; absent when the system knows none.
    std::optional<std::string> bundlePath;
    /// Reverse-DNS identifier or desktop file id; absent when the application has none.
    std::optional<std::string> bundleIdentifier;

    bool operator==(const RunningApplication&) const = default;
};

} // namespace quillary
