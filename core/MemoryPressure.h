#pragma once

#include "core/RawEnum.h"

#include <cstdint>

namespace quillary {

/// How short of memory the machine is. The relational operators follow the order of the cases.
enum class MemoryPressure { normal, warning, critical };

constexpr std::array<RawCase<MemoryPressure>, 3> rawCases(MemoryPressure /*table*/) {
    return {{{MemoryPressure::normal, "normal"},
             {MemoryPressure::warning, "warning"},
             {MemoryPressure::critical, "critical"}}};
}

/// The position in the order: 0, 1 or 2.
[[nodiscard]] constexpr int rank(MemoryPressure pressure) {
    return static_cast<int>(pressure);
}

/// What a Darwin kernel's pressure level (`kern.memorystatus_vm_pressure_level`) means: 4 is critical, 2 a
/// warning, everything else normal.
[[nodiscard]] constexpr MemoryPressure memoryPressureFromKernelLevel(std::int64_t level) {
    switch (level) {
    case 4:
        return MemoryPressure::critical;
    case 2:
        return MemoryPressure::warning;
    default:
        return MemoryPressure::normal;
    }
}

} // namespace quillary
