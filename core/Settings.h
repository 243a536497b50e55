#pragma once

#include "core/DockConfig.h"
#include "core/DockPrefs.h"

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace quillary {

/// Everything that is remembered between two runs. A default one is what a first run starts with.
struct Settings {
    Settings() = default;
    Settings(std::vector<DockConfig> docks, bool onboarded);

    /// One entry for every known screen, in the order in which the screens were first seen.
    std::vector<DockConfig> docks;
    /// Whether the welcome was shown and the first run is over.
    bool onboarded = false;
    /// Whether the system's own dock is to be hidden while the program runs.
    bool hideSystemDock = true;
    /// The preferences of the system's own dock from before it was hidden; present only while it is hidden.
    std::optional<DockPrefs> savedSystemDock;
    /// Whether docks show how much memory applications use.
    bool showMemory = true;

    /// A copy of the first configuration whose `screenKey` is exactly `key`; nothing when there is none.
    [[nodiscard]] std::optional<DockConfig> dock(std::string_view key) const;

    /// Applies `change` to the first configuration whose `screenKey` is exactly `key`; does nothing, and
    /// never appends, when there is none.
    void update(std::string_view key, const std::function<void(DockConfig&)>& change);

    bool operator==(const Settings&) const = default;
};

} // namespace quillary
