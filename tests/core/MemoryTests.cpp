#include "core/MemoryPressure.h"
#include "core/MemoryStats.h"
#include "core/RamBadge.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <limits>
#include <random>

namespace quillary {

namespace {

constexpr std::uint64_t mebibyte = 1'048'576;
constexpr std::uint64_t gibibyte = 1'073'741'824;
constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();

TEST(MemoryPressure, ordersByRank) {
    EXPECT_LT(MemoryPressure::normal, MemoryPressure::warning);
    EXPECT_LT(MemoryPressure::warning, MemoryPressure::critical);
    EXPECT_GE(MemoryPressure::critical, MemoryPressure::normal);
    EXPECT_LE(MemoryPressure::warning, MemoryPressure::warning);
    EXPECT_GT(MemoryPressure::critical, MemoryPressure::warning);
    EXPECT_EQ(rank(MemoryPressure::normal), 0);
    EXPECT_EQ(rank(MemoryPressure::warning), 1);
    EXPECT_EQ(rank(MemoryPressure::critical), 2);
}

TEST(MemoryPressure, hasRawValues) {
    EXPECT_EQ(rawValue(MemoryPressure::normal), "normal");
    EXPECT_EQ(fromRawValue<MemoryPressure>("warning"), MemoryPressure::warning);
    EXPECT_EQ(fromRawValue<MemoryPressure>("critical"), MemoryPressure::critical);
    EXPECT_EQ(fromRawValue<MemoryPressure>("urgent"), std::nullopt);
}

TEST(MemoryPressure, kernelLevelsFourAndTwoAreSevere) {
    EXPECT_EQ(memoryPressureFromKernelLevel(4), MemoryPressure::critical);
    EXPECT_EQ(memoryPressureFromKernelLevel(2), MemoryPressure::warning);
    for (const int level : {1, 0, 3, 5, -1, -4}) {
        EXPECT_EQ(memoryPressureFromKernelLevel(level), MemoryPressure::normal) << level;
    }
    EXPECT_EQ(memoryPressureFromKernelLevel(std::int64_t{1} << 32 | 4), MemoryPressure::normal);
}

TEST(MemoryStats, fractionIsCappedAndZeroWithoutATotal) {
    EXPECT_EQ((MemoryStats{.total = 0, .used = 5}.usedFraction()), 0.0);
    EXPECT_EQ((MemoryStats{.total = 8 * gibibyte, .used = 9 * gibibyte}.usedFraction()), 1.0);
    EXPECT_EQ((MemoryStats{.total = 8 * gibibyte, .used = 2 * gibibyte}.usedFraction()), 0.25);
}

TEST(MemoryStats, usedCountsAnonymousWiredAndCompressedPages) {
    EXPECT_EQ(MemoryStats::usedBytes(16384, 100, 30, 10, 5), 1'392'640U);
}

TEST(MemoryStats, purgeablePagesNeverMakeItNegative) {
    EXPECT_EQ(MemoryStats::usedBytes(4096, 10, 20, 1, 1), 8192U);
    EXPECT_EQ(MemoryStats::usedBytes(4096, 10, 10, 1, 1), 8192U);
}

TEST(MemoryStatsDeathTest, overflowStopsTheProgram) {
    EXPECT_DEATH(static_cast<void>(MemoryStats::usedBytes(1, most, 0, 1, 0)), "Quillary: .*overflow");
    EXPECT_DEATH(static_cast<void>(MemoryStats::usedBytes(1, most - 1, 0, 1, 1)), "Quillary: .*overflow");
    EXPECT_DEATH(static_cast<void>(MemoryStats::usedBytes(2, most, 0, 0, 0)), "Quillary: .*overflow");
    EXPECT_EQ(MemoryStats::usedBytes(1, most, 0, 0, 0), most);
}

RamBadge normal(std::uint64_t bytes, std::uint64_t total) {
    return RamBadges::level(bytes, total, MemoryPressure::normal, true);
}

RamBadge warned(std::uint64_t bytes, std::uint64_t total) {
    return RamBadges::level(bytes, total, MemoryPressure::warning, true);
}

TEST(RamBadge, unknownInstalledMemoryGivesNone) {
    EXPECT_EQ(normal(most, 0), RamBadge::none);
    EXPECT_EQ(RamBadges::level(most, 0, MemoryPressure::critical, false), RamBadge::none);
}

TEST(RamBadge, othersThanTheTopAreHeavyAtMost) {
    const auto level = [](std::uint64_t bytes) {
        return RamBadges::level(bytes, 8 * gibibyte, MemoryPressure::critical, false);
    };
    EXPECT_EQ(level(gibibyte), RamBadge::heavy);
    EXPECT_EQ(level(gibibyte - 1), RamBadge::none);
    EXPECT_EQ(level(8 * gibibyte), RamBadge::heavy);
}

TEST(RamBadge, pressureHalvesTheHogLine) {
    const std::uint64_t bytes = 3 * gibibyte / 2;
    EXPECT_EQ(normal(bytes, 8 * gibibyte), RamBadge::heavy);
    EXPECT_EQ(warned(bytes, 8 * gibibyte), RamBadge::hog);
    EXPECT_EQ(RamBadges::level(bytes, 8 * gibibyte, MemoryPressure::critical, true), RamBadge::hog);
}

struct Thresholds {
    std::uint64_t installed;
    std::uint64_t heavy;
    std::uint64_t hog;
    std::uint64_t hogUnderPressure;
};

// 1.6, 3.2 and 6.4 GiB are no whole bytes: the first byte count at or above each line.
class RamBadgeThresholds : public testing::TestWithParam<Thresholds> {};

TEST_P(RamBadgeThresholds, beginExactlyThere) {
    const auto& [installed, heavy, hog, hogUnderPressure] = GetParam();
    EXPECT_EQ(normal(heavy - 1, installed), RamBadge::none);
    EXPECT_EQ(normal(heavy, installed), RamBadge::heavy);
    EXPECT_EQ(normal(hog - 1, installed), RamBadge::heavy);
    EXPECT_EQ(normal(hog, installed), RamBadge::hog);
    EXPECT_EQ(warned(hogUnderPressure - 1, installed), RamBadge::none);
    EXPECT_EQ(warned(hogUnderPressure, installed), RamBadge::hog);
}

INSTANTIATE_TEST_SUITE_P(
    Machines, RamBadgeThresholds,
    testing::Values(Thresholds{4 * gibibyte, 1'073'741'824, 2'147'483'648, 1'073'741'824},
                    Thresholds{8 * gibibyte, 1'073'741'824, 2'147'483'648, 1'073'741'824},
                    Thresholds{16 * gibibyte, 1'717'986'919, 3'435'973'837, 1'717'986'919},
                    Thresholds{32 * gibibyte, 3'435'973'837, 6'871'947'674, 3'435'973'837}),
    [](const auto& machine) { return std::to_string(machine.param.installed / gibibyte) + "GiB"; });

TEST(RamBadge, sizesBelowAThousandMebibytesAreWholeMegabytes) {
    EXPECT_EQ(RamBadges::text(0), "0 MB");
    EXPECT_EQ(RamBadges::text(524'287), "0 MB");
    EXPECT_EQ(RamBadges::text(524'288), "1 MB");
    EXPECT_EQ(RamBadges::text(512 * mebibyte), "512 MB");
    EXPECT_EQ(RamBadges::text(5 * mebibyte / 2), "3 MB");
    EXPECT_EQ(RamBadges::text(1'048'051'712), "1000 MB");
    EXPECT_EQ(RamBadges::text(1'048'575'999), "1000 MB");
}

TEST(RamBadge, largerSizesAreGigabytesWithOneDecimal) {
    EXPECT_EQ(RamBadges::text(1'048'576'000), "1.0 GB");
    EXPECT_EQ(RamBadges::text(1'610'612'736), "1.5 GB");
    EXPECT_EQ(RamBadges::text(64 * gibibyte), "64.0 GB");
    EXPECT_EQ(RamBadges::text(most), "17179869184.0 GB");
}

TEST(RamBadge, exactTiesRoundToEvenAsPrintfDoes) {
    EXPECT_EQ(RamBadges::text(5 * gibibyte / 4), "1.2 GB");
    EXPECT_EQ(RamBadges::text(7 * gibibyte / 4), "1.8 GB");
    EXPECT_EQ(RamBadges::text(9 * gibibyte / 4), "2.2 GB");
}

TEST(RamBadge, gigabytesAreWhatPrintfWrites) {
    for (std::uint64_t seed = 0; seed < 20'000; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937_64 random(seed);
        const std::uint64_t bytes = 1'048'576'000 + (random() >> (random() % 34));
        std::array<char, 64> expected{};
        std::snprintf(expected.data(), expected.size(), "%.1f GB",
                      static_cast<double>(bytes) / 1048576.0 / 1024.0);
        ASSERT_EQ(RamBadges::text(bytes), expected.data());
    }
}

} // namespace

} // namespace quillary
