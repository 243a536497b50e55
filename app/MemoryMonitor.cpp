#include "app/MemoryMonitor.h"

#include "core/Fatal.h"
#include "platform/MemorySource.h"
#include "platform/Scheduler.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace quillary {

namespace {

constexpr double samplingInterval = 4.0;

// Entries with the same key are one application.
MemoryMonitor::ByApp byPath(const std::vector<AppUsage>& usages) {
    MemoryMonitor::ByApp result;
    for (const AppUsage& usage : usages) {
        auto& bytes = result[usage.id];
        if (__builtin_add_overflow(bytes, usage.bytes, &bytes)) {
            fatal("the memory of an application overflowed");
        }
    }
    return result;
}

} // namespace

MemoryMonitor::MemoryMonitor(Scheduler& time, MemorySource& figures) : scheduler(time), source(figures) {}

MemoryMonitor::~MemoryMonitor() = default;

void MemoryMonitor::setActive(bool active) {
    if (active == on) {
        return;
    }
    on = active;
    timer.reset();
    if (!active) {
        applications.clear();
        Q_EMIT byAppChanged();
        return;
    }
    startSample();
    timer = scheduler.every(samplingInterval, [this] { startSample(); });
}

void MemoryMonitor::startSample() {
    const std::uint64_t number = ++lastStarted;
    scheduler.onWorker(
        [monitor = QPointer(this), number, take = source.sampler()]() -> std::function<void()> {
            return [monitor, number, sample = take()] {
                if (monitor) {
                    monitor->arrive(number, sample);
                }
            };
        });
}

void MemoryMonitor::arrive(std::uint64_t number, const MemorySample& sample) {
    if (!on || number < lastArrived) {
        return;
    }
    lastArrived = number;
    publish(sample.stats, byPath(sample.applications));
}

void MemoryMonitor::publish(const MemoryStats& stats, ByApp byApp) {
    if (!on) {
        return;
    }
    if (stats != machine) {
        machine = stats;
        Q_EMIT statsChanged();
    }
    // Whoever heard of the new figures may have switched the monitor off.
    if (on && byApp != applications) {
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
