#include "platform/linux/memory/LinuxMemorySource.h"

#include "platform/linux/entries/DesktopEntries.h"
#include "platform/linux/memory/MachineMemory.h"

#include <ctime>
#include <mutex>
#include <utility>

#include <sched.h>
#include <unistd.h>

namespace quillary {

namespace {

// Makes the calling thread a batch job while it lives.
class UtilityPriority {
public:
    UtilityPriority() : m_policy(::sched_getscheduler(0)) { set(SCHED_BATCH); }
    UtilityPriority(const UtilityPriority&) = delete;
    UtilityPriority& operator=(const UtilityPriority&) = delete;
    ~UtilityPriority() { set(m_policy); }

private:
    // A thread with another policy than the default was given it on purpose.
    void set(int policy) const {
        const sched_param parameters{};
        if (m_policy == SCHED_OTHER) {
            ::sched_setscheduler(0, policy, &parameters);
        }
    }

    int m_policy;
};

double secondsOf(clockid_t clock) {
    constexpr double nanosecond = 1e-9;
    timespec time{};
    ::clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * nanosecond;
}

} // namespace

struct LinuxMemorySource::Shared {
    std::filesystem::path root;
    MemorySurroundings surroundings;
    BusyProcesses busy;
    std::mutex lock;
    // Guarded by the lock: the table of the latest sample. Samples that overlap begin with the same table.
    std::shared_ptr<const ProcessTable> table = std::make_shared<const ProcessTable>();

    [[nodiscard]] ProcessTable copy() {
        std::shared_ptr<const ProcessTable> latest;
        {
            const std::lock_guard guard(lock);
            latest = table;
        }
        return *latest;
    }

    void keep(ProcessTable left) {
        auto next = std::make_shared<const ProcessTable>(std::move(left));
        const std::lock_guard guard(lock);
        if (next->samples > table->samples) {
            std::swap(table, next);
        }
    }
};

LinuxMemorySource::LinuxMemorySource(Desktop desktop, std::string ownId, const std::filesystem::path& root)
    : m_desktop(std::move(desktop)), m_shared(std::make_shared<Shared>()) {
    m_shared->root = root;
    m_shared->surroundings = {.processes = ProcFilesystem(root / "proc"),
                              .user = ::geteuid(),
                              .ownPid = static_cast<std::int32_t>(::getpid()),
                              .ownId = std::move(ownId),
                              .entryFolders = applicationFolders(),
                              .clock = [] { return secondsOf(CLOCK_MONOTONIC); },
                              .processorTime = [] { return secondsOf(CLOCK_THREAD_CPUTIME_ID); }};
}

LinuxMemorySource::~LinuxMemorySource() = default;

MemorySource::Sampler LinuxMemorySource::sampler() {
    return [shared = m_shared, desktop = m_desktop()] {
        const UtilityPriority priority;
        MemorySample sample;
        sample.stats = MachineMemory::stats(MachineMemory::texts(shared->root),
                                            static_cast<std::uint64_t>(::getpagesize()));
        auto table = shared->copy();
        sample.applications = MemorySweep(shared->surroundings, shared->busy, table).run(desktop);
        shared->keep(std::move(table));
        return sample;
    };
}

} // namespace quillary
