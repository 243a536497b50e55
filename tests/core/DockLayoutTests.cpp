#include "core/DockLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace quillary {

namespace {

using DockLayout::Shifted;
using Numbers = std::vector<double>;

TEST(DockLayout, constantsAreTheDocumentedMeasures) {
    EXPECT_EQ(DockLayout::spacing, 6);
    EXPECT_EQ(DockLayout::pad, 8);
    EXPECT_EQ(DockLayout::separatorWidth, 13);
    EXPECT_EQ(DockLayout::minimumIconSize, 20);
    EXPECT_EQ(DockLayout::growthFactor, 3.4);
    EXPECT_EQ(DockLayout::alongSlack, 28);
    EXPECT_EQ(DockLayout::magnificationRadius, 2.4);
    EXPECT_EQ(DockLayout::dotRoom, 15);
    EXPECT_EQ(DockLayout::farMargin, 8);
    EXPECT_EQ(DockLayout::edgeGap, 4);
    EXPECT_EQ(DockLayout::depthBase, 27);
    EXPECT_EQ(DockLayout::depthTail, 14);
    EXPECT_EQ(DockLayout::labelRoomHorizontal, 36);
    EXPECT_EQ(DockLayout::labelRoomVertical, 200);
    EXPECT_EQ(DockLayout::zoneAlongTolerance, 6);
    EXPECT_EQ(DockLayout::zoneBeyondEdge, 2);
    EXPECT_EQ(DockLayout::zoneIntoScreen, 4);
    EXPECT_EQ(DockLayout::revealDepth, 3);
    EXPECT_EQ(DockLayout::hitTolerance, 3);
}

TEST(DockLayout, lengthCountsPadsGapsAndWidths) {
    EXPECT_EQ(DockLayout::length(Numbers(10, 48.0), 6, 8), 550.0);
    EXPECT_EQ(DockLayout::length(Numbers{48, 13, 48}, 6, 8), 137.0);
    EXPECT_EQ(DockLayout::length(Numbers{48}, 6, 8), 64.0);
    EXPECT_EQ(DockLayout::length({}, 6, 8), 16.0);
}

TEST(DockLayout, restCentersWalkAlongTheRow) {
    EXPECT_EQ(DockLayout::restCenters(Numbers{48, 13, 48}, 6, 8), (Numbers{32, 68.5, 105}));
    EXPECT_EQ(DockLayout::restCenters({}, 6, 8), Numbers{});
}

TEST(DockLayout, magnificationIsFullOnTheCentreAndNoneAtTheRadius) {
    EXPECT_EQ(DockLayout::magnifyScale(0, 48, 0.35), 1.35);
    EXPECT_EQ(DockLayout::magnifyScale(0, 48, 0.8), 1.8);
    EXPECT_EQ(DockLayout::magnifyScale(2.4 * 48, 48, 0.8), 1.0);
    EXPECT_EQ(DockLayout::magnifyScale(-2.4 * 48, 48, 0.8), 1.0);
    EXPECT_EQ(DockLayout::magnifyScale(500, 48, 0.8), 1.0);
}

TEST(DockLayout, magnificationFollowsAQuarterCosine) {
    // A third of the radius is 30 degrees, a half 45, two thirds 60.
    EXPECT_NEAR(DockLayout::magnifyScale(32, 40, 0.8), 1.6928203230275509, 1e-12);
    EXPECT_NEAR(DockLayout::magnifyScale(48, 40, 0.8), 1.5656854249492380, 1e-12);
    EXPECT_NEAR(DockLayout::magnifyScale(-64, 40, 0.8), 1.4, 1e-12);
}

TEST(DockLayout, withoutAnAmountNothingIsMagnified) {
    EXPECT_EQ(DockLayout::magnifyScale(0, 48, 0), 1.0);
    EXPECT_EQ(DockLayout::magnifyScale(0, 48, -0.5), 1.0);
    EXPECT_EQ(DockLayout::magnifyScale(0, 0, 0.8), 1.0);
    EXPECT_EQ(DockLayout::magnifyScale(std::numeric_limits<double>::quiet_NaN(), 48, 0.8), 1.0);
}

TEST(DockLayout, unitScalesShiftNothing) {
    const Numbers centers{32, 68.5, 105};
    EXPECT_EQ(DockLayout::shifted(centers, Numbers{48, 13, 48}, Numbers{1, 1, 1}), (Shifted{centers, 0.0}));
}

TEST(DockLayout, cellsMoveByHalfTheDifferenceOfTheGrowthAroundThem) {
    // Growth 10, 0 and 30: the row gains 40, 20 of it at each end.
    const Shifted row = DockLayout::shifted(Numbers{10, 50, 90}, Numbers{20, 13, 20}, Numbers{1.5, 1, 2.5});
    EXPECT_EQ(row.extra, 40.0);
    EXPECT_EQ(row.centers, (Numbers{10 - 15, 50 - 10, 90 + 5}));
}

TEST(DockLayout, shorterCentersAreAllowedAndTheWholeGrowthStillCounts) {
    const Shifted row = DockLayout::shifted(Numbers{10}, Numbers{20, 20, 99}, Numbers{1, 2});
    EXPECT_EQ(row.extra, 20.0);
    EXPECT_EQ(row.centers, Numbers{0});
    EXPECT_EQ(DockLayout::shifted({}, {}, {}), Shifted());
}

TEST(DockLayoutDeathTest, moreCentersThanPairsStopTheProgram) {
    EXPECT_DEATH(static_cast<void>(DockLayout::shifted(Numbers{1, 2}, Numbers{1, 2}, Numbers{1})),
                 "Quillary: a row was spread with more centres than widths or scales");
    EXPECT_DEATH(static_cast<void>(DockLayout::shifted(Numbers{1, 2}, Numbers{1}, Numbers{1, 2})),
                 "Quillary: ");
}

TEST(DockLayout, spreadingKeepsTheMiddleAndTheGaps) {
    for (std::uint32_t seed = 0; seed < 2000; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> size(20, 128);
        std::uniform_real_distribution<double> scale(1, 1.8);
        Numbers widths(1 + random() % 40);
        Numbers scales(widths.size());
        std::ranges::generate(widths, [&] { return size(random); });
        std::ranges::generate(scales, [&] { return scale(random); });
        const Numbers rest = DockLayout::restCenters(widths, 6, 8);
        const Shifted row = DockLayout::shifted(rest, widths, scales);

        const std::size_t last = widths.size() - 1;
        const double start = row.centers[0] - widths[0] * scales[0] / 2;
        const double end = row.centers[last] + widths[last] * scales[last] / 2;
        const double length = DockLayout::length(widths, 6, 8);
        ASSERT_NEAR((start + end) / 2, length / 2, 1e-8);
        ASSERT_NEAR(end - start, length - 16 + row.extra, 1e-8);
        for (std::size_t at = 1; at <= last; ++at) {
            const double gap = row.centers[at] - widths[at] * scales[at] / 2 -
                               (row.centers[at - 1] + widths[at - 1] * scales[at - 1] / 2);
            ASSERT_NEAR(gap, 6, 1e-8);
        }
    }
}

} // namespace

} // namespace quillary
