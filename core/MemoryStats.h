#pragma once

#include "core/MemoryPressure.h"

#include <cstdint>

namespace quillary {

/// The machine's memory at one moment. The default one stands for "not sampled yet"; a figure that could not
/// be read is 0.
struct MemoryStats {
    /// Installed memory, bytes.
    std::uint64_t total = 0;
    /// Memory in use, bytes.
    std::uint64_t used = 0;
    /// Swap space in use, bytes.
    std::uint64_t swapUsed = 0;
    MemoryPressure pressure = MemoryPressure::normal;

    /// `used` as a fraction of `total`, at most 1; 0 when the total is unknown.
    [[nodiscard]] double usedFraction() const;

    /// Memory in use, in bytes, from counts of pages: anonymous pages that cannot be purged, wired pages and
    /// pages of the compressor. `pageSize` is in bytes. An overflow ends the program.
    [[nodiscard]] static std::uint64_t usedBytes(std::uint64_t pageSize, std::uint64_t anonymous,
                                                 std::uint64_t purgeable, std::uint64_t wired,
                                                 std::uint64_t compressed);

    bool operator==(const MemoryStats&) const = default;
};

} // namespace quillary
