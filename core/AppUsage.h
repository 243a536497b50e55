#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillary {

/// The memory that one application uses, all of its processes together.
struct AppUsage {
    /// The application's path: the identity that docks know it by.
    std::string id;
    /// The path's last component without its extension.
    std::string name;
    /// The processes that were summed, in the order of their samples.
    std::vector<std::int32_t> pids;
    /// Summed physical footprint, bytes.
    std::uint64_t bytes = 0;

    /// Whole mebibytes, rounded down.
    [[nodiscard]] std::uint64_t megabytes() const { return bytes >> 20U; }

    bool operator==(const AppUsage&) const = default;
};

} // namespace quillary
