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

MemoryMonitor::MemoryMonitor(Scheduler& scheduler, MemorySource& source)
    : m_scheduler(scheduler), m_source(source) {}

MemoryMonitor::~MemoryMonitor() = default;

void MemoryMonitor::setActive(bool active) {
    if (active == m_running) {
        return;
    }
    m_running = active;
    m_timer.reset();
    if (!active) {
        m_byApp.clear();
        Q_EMIT byAppChanged();
        return;
    }
    startSample();
    m_timer = m_scheduler.every(samplingInterval, [this] { startSample(); });
}

void MemoryMonitor::startSample() {
    const std::uint64_t number = ++m_lastStarted;
    m_scheduler.onWorker(
        [monitor = QPointer(this), number, take = m_source.sampler()]() -> std::function<void()> {
            return [monitor, number, sample = take()] {
                if (monitor) {
                    monitor->arrive(number, sample);
                }
            };
        });
}

void MemoryMonitor::arrive(std::uint64_t number, const MemorySample& sample) {
    if (!m_running || number < m_lastArrived) {
        return;
    }
    m_lastArrived = number;
    publish(sample.stats, byPath(sample.applications));
}

void MemoryMonitor::publish(const MemoryStats& stats, ByApp byApp) {
    if (!m_running) {
        return;
    }
    if (stats != m_stats) {
        m_stats = stats;
        Q_EMIT statsChanged();
    }
    // A slot of statsChanged may have switched the monitor off.
    if (m_running && byApp != m_byApp) {
        m_byApp = std::move(byApp);
        Q_EMIT byAppChanged();
    }
}

RamBadge MemoryMonitor::badge(std::string_view path) const {
    const auto entry = m_byApp.find(path);
    if (entry == m_byApp.end()) {
        return RamBadge::none;
    }
    const auto top =
        std::ranges::max_element(m_byApp, {}, [](const auto& application) { return application.second; });
    return RamBadges::level(entry->second, m_stats.total, m_stats.pressure, entry->second == top->second);
}

} // namespace quillary
