#include "core/Settings.h"

#include <algorithm>
#include <utility>

namespace quillary {

Settings::Settings(std::vector<DockConfig> knownDocks, bool isOnboarded)
    : docks(std::move(knownDocks)), onboarded(isOnboarded) {}

std::optional<DockConfig> Settings::dock(std::string_view key) const {
    const auto found = std::ranges::find(docks, key, &DockConfig::screenKey);
    return found == docks.end() ? std::nullopt : std::optional(*found);
}

void Settings::update(std::string_view key, const std::function<void(DockConfig&)>& change) {
    const auto found = std::ranges::find(docks, key, &DockConfig::screenKey);
    if (found != docks.end()) {
        change(*found);
    }
}

} // namespace quillary
