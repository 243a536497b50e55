#include "app/MemoryMonitor.h"

#include <algorithm>

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
