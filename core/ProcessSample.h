#pragma once

#include <cstdint>
#include <string>

namespace quillary {

/// The memory of one process, and the path by which it is attributed to an application.
struct ProcessSample {
    std::int32_t pid = 0;
    /// Of the executable; for sums by application, of the application.
    std::string path;
    /// Physical footprint in bytes; 0 when it could not be read.
    std::uint64_t bytes = 0;

    bool operator==(const ProcessSample&) const = default;
};

} // namespace quillary
