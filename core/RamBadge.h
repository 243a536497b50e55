#pragma once

#include "core/MemoryPressure.h"
#include "core/RawEnum.h"

#include <cstdint>
#include <string>

namespace quillary {

/// The verdict on one application's use of memory, shown under its icon.
enum class RamBadge { none, heavy, hog };

constexpr std::array<RawCase<RamBadge>, 3> rawCases(RamBadge /*table*/) {
    return {{{RamBadge::none, "none"}, {RamBadge::heavy, "heavy"}, {RamBadge::hog, "hog"}}};
}

namespace RamBadges {

/// The verdict on an application that uses `bytes` on a machine with `totalRAM` bytes installed. `isTop`
/// is whether no application uses more; only then can it be a hog. Unknown installed memory (0) gives
/// no badge.
[[nodiscard]] RamBadge level(std::uint64_t bytes, std::uint64_t totalRAM, MemoryPressure pressure,
                             bool isTop);

/// A size for people: whole mebibytes as "512 MB", from 1000 MiB on gibibytes with one decimal as "1.5 GB".
/// Always with a decimal point, whatever the locale.
[[nodiscard]] std::string text(std::uint64_t bytes);

} // namespace RamBadges

} // namespace quillary
