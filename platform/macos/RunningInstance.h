#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace quillary {

/// A running process of this program.
struct RunningInstance {
    std::int32_t pid = 0;
    /// The time of the launch, in seconds on a clock that all instances share. Absent for a process that
    /// LaunchServices did not start, for example one started from a shell.
    std::optional<double> launched;

    bool operator==(const RunningInstance&) const = default;
};

/// Whether this process must yield to one of the others. Of two processes that check at the same time exactly
/// one yields: the one launched later, or the one with the higher id if the times are equal. An absent launch
/// time counts as the earliest.
[[nodiscard]] bool makesWay(const RunningInstance& own, const std::vector<RunningInstance>& others);

} // namespace quillary
