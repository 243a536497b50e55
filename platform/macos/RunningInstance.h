#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace quillary {

/// One running process of this program.
struct RunningInstance {
    std::int32_t pid = 0;
    /// Seconds on any clock; absent for a process that the system did not start itself, as from a shell.
    std::optional<double> launched;

    bool operator==(const RunningInstance&) const = default;
};

/// Whether this process makes way for one of the others. Of two that look at each other at the same time
/// exactly one does: the one that was launched later, those of unknown launch counting as first, and of
/// equals the one with the higher id.
[[nodiscard]] bool makesWay(const RunningInstance& own, const std::vector<RunningInstance>& others);

} // namespace quillary
