#pragma once

#include <optional>

namespace quillary {

/// The two preferences of the system's own dock that decide whether it is seen.
struct DockPrefs {
    /// Whether it hides itself; absent when the preference is not set.
    std::optional<bool> autohide;
    /// Seconds until it shows itself again; absent when the preference is not set.
    std::optional<double> delay;

    /// The state in which it is, for practical purposes, never shown: (true, 1000 s).
    static const DockPrefs hidden;

    bool operator==(const DockPrefs&) const = default;
};

} // namespace quillary
