#include "app/MemoryMonitor.h"

#include <algorithm>
#include <utility>

namespace quillary {

void MemoryMonitor::setActive(bool active) {
    if (active == on) {
        return;
    }
    on = active;
    if (!active) {
        applications.clear();
        Q_EMIT byAppChanged();
    }
}

void MemoryMonitor::publish(const MemoryStats& stats, ByApp byApp) {
    if (!on) {
        return;
    }
    if (stats != machine) {
        machine = stats;
        Q_EMIT statsChanged();
    }
    if (byApp != applications) {
        applications = std::move(byApp);
        Q_EMIT byAppChanged();
    }
}

RamBadge MemoryMonitor::badge(std::string_view path) const {
    const auto entry = applications.find(path);
    if (entry == applications.end()) {
        return RamBadge::none;
    }
    const auto top = std::ranges::max_element(applications, {},
                                              [](const auto& application) { return application.second; });
    return RamBadges::level(entry->second, machine.total, machine.pressure, entry->second == top->second);
}

} // namespace quillary
