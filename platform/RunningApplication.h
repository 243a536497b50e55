#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quillary {

/// How an application takes part in the desktop.
enum class ActivationPolicy {
    /// Has windows of its own for the user and stands in docks.
    regular,
    /// A background utility with occasional windows.
    accessory,
    /// No user interface at all.
    prohibited,
};

/// One running application as the system lists it.
struct RunningApplication {
    /// The backend's own handle, valid until the application ends; never reused while this program runs.
    std::uint64_t handle = 0;
    ActivationPolicy policy = ActivationPolicy::regular;
    /// Absolute path of its bundle or desktop entry; absent when the system knows none.
    std::optional<std::string> bundlePath;
    /// Reverse-DNS identifier or desktop id; absent when it has none.
    std::optional<std::string> bundleIdentifier;

    bool operator==(const RunningApplication&) const = default;
};

} // namespace quillary
