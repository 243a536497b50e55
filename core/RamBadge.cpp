#include "core/RamBadge.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace quillary::RamBadges {

namespace {

constexpr double mebibyte = 1024.0 * 1024.0;
constexpr double gibibyte = 1024.0 * mebibyte;
constexpr double heavyShare = 0.1;
constexpr double hogShare = 0.2;
constexpr double pressedHogFactor = 0.5;

// std::to_chars rounds the exact decimal value, as printf does in the C locale, and knows no other locale.
std::string decimal(double value, int places) {
    std::array<char, 64> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, places);
    return {buffer.data(), end.ptr};
}

} // namespace

RamBadge level(std::uint64_t bytes, std::uint64_t totalRAM, MemoryPressure pressure, bool isTop) {
    if (totalRAM == 0) {
        return RamBadge::none;
    }
    const auto used = static_cast<double>(bytes);
    const auto installed = static_cast<double>(totalRAM);
    const double heavyLine = std::max(installed * heavyShare, gibibyte);
    const double hogLine = std::max(installed * hogShare, 2 * gibibyte) *
                           (pressure == MemoryPressure::normal ? 1.0 : pressedHogFactor);
    if (isTop && used >= std::max(hogLine, heavyLine)) {
        return RamBadge::hog;
    }
    return used >= heavyLine ? RamBadge::heavy : RamBadge::none;
}

std::string text(std::uint64_t bytes) {
    const double mebibytes = static_cast<double>(bytes) / mebibyte;
    if (mebibytes >= 1000) {
        return decimal(mebibytes / 1024, 1) + " GB";
    }
    return decimal(std::round(mebibytes), 0) + " MB";
}

} // namespace quillary::RamBadges
