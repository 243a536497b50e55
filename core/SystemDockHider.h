#pragma once

#include "core/DockPrefs.h"

#include <optional>

/// Decides how the system's own dock is hidden and brought back.
namespace quillary::SystemDockHider {

struct Plan {
    /// What to write to the preferences of the system's own dock; nothing when they are to stay as they are.
    std::optional<DockPrefs> write;
    /// The new value of `Settings::savedSystemDock`.
    std::optional<DockPrefs> saved;

    bool operator==(const Plan&) const = default;
};

/// What to do when the system's own dock is to be hidden (`hide`) or shown, while its preferences are
/// `current` and `saved` is remembered. Preferences that are exactly `DockPrefs::hidden` are taken for the
/// program's own work, so hiding twice keeps what was remembered first, and showing leaves preferences that
/// the user changed meanwhile.
[[nodiscard]] Plan plan(bool hide, const DockPrefs& current, const std::optional<DockPrefs>& saved);

} // namespace quillary::SystemDockHider
