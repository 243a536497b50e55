#pragma once

#include "core/MemoryStats.h"
#include "core/RamBadge.h"

#include <QObject>

#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace quillary {

class MemorySource;
class ScheduledTask;
class Scheduler;
struct MemorySample;

/// The latest memory figures of the machine and of each application, and what they mean for a dock's icons.
///
/// While it is on, a sample is taken at once and then every 4 s, on a worker. Samples may overlap; one that
/// arrives after a newer one, or while the monitor is off, is dropped. While it is off nothing wakes up.
class MemoryMonitor : public QObject {
    Q_OBJECT

public:
    /// Bytes by path of the application.
    using ByApp = std::map<std::string, std::uint64_t, std::less<>>;

    /// Off at first. Both must outlive the monitor; the monitor may be destroyed while a sample is taken.
    MemoryMonitor(Scheduler& scheduler, MemorySource& source);
    ~MemoryMonitor() override;

    [[nodiscard]] const MemoryStats& stats() const { return m_stats; }
    [[nodiscard]] const ByApp& byApp() const { return m_byApp; }
    [[nodiscard]] bool running() const { return m_running; }

    /// Takes the result of a sample: what differs from the last one is published; all of it is dropped while
    /// the monitor is off.
    void publish(const MemoryStats& stats, ByApp byApp);
    /// Switches sampling on or off. Switching off drops the figures of the applications, but not the
    /// machine's.
    void setActive(bool active);
    /// The badge of the application at exactly this path; none when it has no figure.
    [[nodiscard]] RamBadge badge(std::string_view path) const;

Q_SIGNALS:
    void statsChanged();
    void byAppChanged();

private:
    void startSample();
    void arrive(std::uint64_t number, const MemorySample& sample);

    Scheduler& m_scheduler;
    MemorySource& m_source;
    MemoryStats m_stats;
    ByApp m_byApp;
    bool m_running = false;
    std::unique_ptr<ScheduledTask> m_timer;
    // Samples are numbered in the order in which they were started.
    std::uint64_t m_lastStarted = 0;
    std::uint64_t m_lastArrived = 0;
};

} // namespace quillary
