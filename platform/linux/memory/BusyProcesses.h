#pragma once

#include <cstdint>
#include <mutex>
#include <set>
#include <utility>

namespace quillary {

/// The processes that some thread is reading in a way that may block on the process. Other threads skip them,
/// so that a process that never responds blocks one thread in all, not one for every sample. Thread-safe.
class BusyProcesses {
public:
    /// The id of a process and the time when it started.
    using Identity = std::pair<std::int32_t, std::uint64_t>;

    /// Calls `read` unless another thread is reading the process. Returns whether it was called.
    template<typename Read>
    bool tryReading(const Identity& process, Read read) {
        {
            const std::lock_guard guard(m_lock);
            if (!m_processes.insert(process).second) {
                return false;
            }
        }
        read();
        const std::lock_guard guard(m_lock);
        m_processes.erase(process);
        return true;
    }

private:
    std::mutex m_lock;
    std::set<Identity> m_processes;
};

} // namespace quillary
