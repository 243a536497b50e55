#include "core/MemoryStats.h"

#include "core/Fatal.h"

#include <algorithm>

namespace quillary {

namespace {

std::uint64_t sum(std::uint64_t left, std::uint64_t right) {
    std::uint64_t result = 0;
    if (__builtin_add_overflow(left, right, &result)) {
        fatal("a sum of memory pages overflowed");
    }
    return result;
}

std::uint64_t product(std::uint64_t left, std::uint64_t right) {
    std::uint64_t result = 0;
    if (__builtin_mul_overflow(left, right, &result)) {
        fatal("a number of memory bytes overflowed");
    }
    return result;
}

} // namespace

double MemoryStats::usedFraction() const {
    if (total == 0) {
        return 0.0;
    }
    return std::min(static_cast<double>(used) / static_cast<double>(total), 1.0);
}

std::uint64_t MemoryStats::usedBytes(std::uint64_t pageSize, std::uint64_t anonymous, std::uint64_t purgeable,
                                     std::uint64_t wired, std::uint64_t compressed) {
    const std::uint64_t kept = anonymous > purgeable ? anonymous - purgeable : 0;
    return product(sum(sum(kept, wired), compressed), pageSize);
}

} // namespace quillary
