#include "app/DockGeometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace quillary {
namespace {

std::vector<DockCell> items(std::size_t count) {
    std::vector<DockCell> cells;
    for (std::size_t i = 0; i < count; ++i) {
        cells.push_back(DockCell::item("/item" + std::to_string(i), DockCell::Origin::pinned));
    }
    return cells;
}

DockConfig config(DockEdge edge, double size, Magnification magnification) {
    DockConfig result("key", "name", {});
    result.edge = edge;
    result.iconSize = size;
    result.magnification = magnification;
    return result;
}

constexpr double endless = 1e9;

TEST(DockGeometry, tenItemsOf48PointsMagnifiedBigHaveTheWorkedSize) {
    const auto cells = items(10);
    const DockGeometry geometry(config(DockEdge::bottom, 48, Magnification::big), cells, endless);
    EXPECT_DOUBLE_EQ(geometry.restLen, 550);
    EXPECT_DOUBLE_EQ(geometry.growthRoom(), 130.56);
    EXPECT_DOUBLE_EQ(geometry.panelSize().width(), 708.56);
    EXPECT_DOUBLE_EQ(geometry.panelSize().height(), 163.4);
    EXPECT_DOUBLE_EQ(geometry.rowOffset(), 79.28);
    EXPECT_DOUBLE_EQ(geometry.restCenters.front(), 32);
    EXPECT_DOUBLE_EQ(geometry.restCenters.back(), 518);
}

TEST(DockGeometry, sidesHaveRoomForLabelsBesideTheIcons) {
    const auto cells = items(10);
    for (const DockEdge edge : {DockEdge::left, DockEdge::right}) {
        const DockGeometry geometry(config(edge, 48, Magnification::big), cells, endless);
        EXPECT_DOUBLE_EQ(geometry.panelSize().width(), 327.4);
        EXPECT_DOUBLE_EQ(geometry.panelSize().height(), 708.56);
    }
    const DockGeometry top(config(DockEdge::top, 48, Magnification::big), cells, endless);
    EXPECT_EQ(top.panelSize(), QSizeF(708.56, 163.4));
}

TEST(DockGeometry, noCellsKeepTheConfiguredSizeHoweverLarge) {
    const std::vector<DockCell> none;
    const DockGeometry huge(config(DockEdge::bottom, 5000, Magnification::off), none, 100);
    EXPECT_DOUBLE_EQ(huge.size, 5000);
    EXPECT_DOUBLE_EQ(huge.restLen, 16);
    EXPECT_TRUE(huge.restCenters.empty());
    EXPECT_DOUBLE_EQ(DockGeometry(config(DockEdge::bottom, 3, Magnification::off), none, 100).size, 20);
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(DockGeometry(config(DockEdge::bottom, infinite, Magnification::off), none, 100).size,
              std::numeric_limits<double>::max());
}

TEST(DockGeometry, aSeparatorAloneCountsAsNoItems) {
    const std::vector<DockCell> cells{DockCell::separator()};
    const DockGeometry geometry(config(DockEdge::bottom, 48, Magnification::off), cells, 10);
    EXPECT_DOUBLE_EQ(geometry.size, 48);
    EXPECT_DOUBLE_EQ(geometry.restLen, 29);
    EXPECT_DOUBLE_EQ(geometry.widths.front(), 13);
}

TEST(DockGeometry, theFittedLimitIsFlooredToWholePoints) {
    EXPECT_DOUBLE_EQ(DockGeometry(config(DockEdge::bottom, 48, Magnification::subtle), items(20), 1000).size,
                     39);
}

TEST(DockGeometry, aSizeThatFitsIsKeptAsConfigured) {
    EXPECT_DOUBLE_EQ(DockGeometry(config(DockEdge::bottom, 48.5, Magnification::off), items(3), 1000).size,
                     48.5);
}

TEST(DockGeometry, iconsNeverShrinkBelow20) {
    const DockGeometry geometry(config(DockEdge::bottom, 48, Magnification::big), items(100), 300);
    EXPECT_DOUBLE_EQ(geometry.size, 20);
    EXPECT_GT(geometry.panelSize().width(), 300);
}

TEST(DockGeometry, separatorsTakeTheirFixedWidthFromTheRoom) {
    auto cells = items(4);
    cells.insert(cells.begin() + 2, DockCell::separator());
    const DockGeometry geometry(config(DockEdge::left, 80, Magnification::off), cells, 400);
    // 400 − 13 − 4·6 − 16 − 28 = 319, over 4 items.
    EXPECT_DOUBLE_EQ(geometry.size, 79);
    EXPECT_DOUBLE_EQ(geometry.widths[2], 13);
}

TEST(DockGeometry, fittingNeverExceedsTheLimitUnlessTheSizeIs20) {
    const unsigned seed = 20261120;
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::uniform_int_distribution<std::size_t> counts(1, 60);
    std::uniform_real_distribution<double> sizes(20, 200);
    std::uniform_real_distribution<double> lengths(0, 4000);
    std::uniform_int_distribution<int> amounts(0, 2);
    for (int round = 0; round < 5000; ++round) {
        auto cells = items(counts(random));
        if (round % 2 == 0) {
            cells.push_back(DockCell::separator());
        }
        const auto magnification = allCases<Magnification>()[static_cast<std::size_t>(amounts(random))];
        const double wanted = sizes(random);
        const double limit = lengths(random);
        const DockGeometry geometry(config(DockEdge::bottom, wanted, magnification), cells, limit);
        EXPECT_LE(geometry.size, wanted);
        EXPECT_GE(geometry.size, 20);
        if (geometry.size > 20) {
            EXPECT_LE(geometry.panelSize().width(), limit + 1e-9) << cells.size() << " " << wanted;
        }
    }
}

TEST(DockGeometry, offReservesNoRoomAndScalesNothing) {
    const auto cells = items(3);
    const DockGeometry geometry(config(DockEdge::bottom, 48, Magnification::off), cells, endless);
    EXPECT_DOUBLE_EQ(geometry.growthRoom(), 0);
    EXPECT_EQ(geometry.scales(60.0, cells), std::vector<double>(3, 1.0));
}

TEST(DockGeometry, scalesFollowAQuarterCosineFromTheRestingCentre) {
    const auto cells = items(10);
    const DockGeometry geometry(config(DockEdge::bottom, 48, Magnification::big), cells, endless);
    const double first = geometry.rowOffset() + 32;
    EXPECT_DOUBLE_EQ(geometry.scales(first, cells)[0], 1.8);
    EXPECT_DOUBLE_EQ(geometry.scales(first + 2.4 * 48, cells)[0], 1.0);
    EXPECT_NEAR(geometry.scales(first + 1.2 * 48, cells)[0], 1 + 0.8 * std::sqrt(0.5), 1e-12);
    EXPECT_EQ(geometry.scales(std::nullopt, cells), std::vector<double>(10, 1.0));
}

TEST(DockGeometry, separatorsNeverGrow) {
    auto cells = items(3);
    cells[1] = DockCell::separator();
    const DockGeometry geometry(config(DockEdge::bottom, 48, Magnification::big), cells, endless);
    const double middle = geometry.rowOffset() + geometry.restCenters[1];
    const auto scales = geometry.scales(middle, cells);
    EXPECT_DOUBLE_EQ(scales[1], 1);
    EXPECT_GT(scales[0], 1);
    EXPECT_DOUBLE_EQ(geometry.widths[1], 13);
}

TEST(DockGeometry, layoutIsInPanelCoordinatesAndKeepsTheMiddle) {
    const auto cells = items(5);
    const DockGeometry geometry(config(DockEdge::bottom, 48, Magnification::subtle), cells, endless);
    const auto rest = geometry.layout(std::vector<double>(5, 1.0));
    EXPECT_DOUBLE_EQ(rest.extra, 0);
    EXPECT_DOUBLE_EQ(rest.centers[2], geometry.alongLength() / 2);
    const auto spread = geometry.layout(geometry.scales(geometry.alongLength() / 2, cells));
    EXPECT_NEAR(spread.centers[2], geometry.alongLength() / 2, 1e-9);
    EXPECT_LT(spread.centers[0], rest.centers[0]);
    EXPECT_GT(spread.extra, 0);
}

TEST(DockGeometry, hitTestReaches3PointsBeyondTheMagnifiedWidth) {
    const auto cells = items(2);
    const DockGeometry geometry(config(DockEdge::bottom, 48, Magnification::off), cells, endless);
    const std::vector<double> scales{1, 1};
    const auto centers = geometry.layout(scales).centers;
    EXPECT_EQ(geometry.hitTest(centers[0] - 27, cells, centers, scales), 0U);
    EXPECT_FALSE(geometry.hitTest(centers[0] - 27.001, cells, centers, scales));
    // The gap of 6 is covered from both sides; the first cell wins in its middle.
    EXPECT_EQ(geometry.hitTest(centers[0] + 27, cells, centers, scales), 0U);
    EXPECT_EQ(geometry.hitTest(centers[0] + 27.001, cells, centers, scales), 1U);
}

using Pointer = DockGeometry::Pointer;

/// Points given by along-coordinate and distance from the edge, so that one test serves four edges.
class EveryEdge : public testing::TestWithParam<DockEdge> {
protected:
    std::vector<DockCell> cells = items(10);
    DockGeometry geometry{config(GetParam(), 48, Magnification::big), cells, endless};
    [[nodiscard]] bool zone(double along, double depth, Pointer before) const {
        return geometry.isInZone(geometry.point(along, depth), before);
    }
    [[nodiscard]] bool strip(double along, double depth) const {
        return geometry.isInRevealStrip(geometry.point(along, depth));
    }
};

TEST_P(EveryEdge, pointsConvertBothWays) {
    const QPointF point = geometry.point(100, 30);
    EXPECT_DOUBLE_EQ(geometry.along(point), 100);
    EXPECT_NEAR(geometry.depth(point), 30, 1e-9);
}

TEST_P(EveryEdge, restingZoneIsTheRowWith6PointsAtEachEnd) {
    const double start = 79.28;
    EXPECT_TRUE(zone(start - 5.99, 10, Pointer::offDock));
    EXPECT_FALSE(zone(start - 6.01, 10, Pointer::offDock));
    EXPECT_TRUE(zone(start + 550 + 5.99, 10, Pointer::offDock));
    EXPECT_FALSE(zone(start + 550 + 6.01, 10, Pointer::offDock));
    // 48 + 15 + 8 + 4 + 4
    EXPECT_TRUE(zone(300, 78.99, Pointer::offDock));
    EXPECT_FALSE(zone(300, 79.01, Pointer::offDock));
}

TEST_P(EveryEdge, activeZoneCoversTheMagnifiedIcons) {
    const double start = 79.28;
    EXPECT_TRUE(zone(start - 6 - 65.27, 10, Pointer::onDock));
    EXPECT_FALSE(zone(start - 6 - 65.29, 10, Pointer::onDock));
    EXPECT_TRUE(zone(start + 550 + 6 + 65.27, 10, Pointer::onDock));
    // 79 + 48 · 0.8
    EXPECT_TRUE(zone(300, 117.39, Pointer::onDock));
    EXPECT_FALSE(zone(300, 117.41, Pointer::onDock));
}

TEST_P(EveryEdge, twoPointsBeyondTheEdgeStillCount) {
    const auto edgeAndBeyond = [this](double depth) {
        // The origin of left and top edges is the edge itself: no rounding blurs the border there.
        return std::pair(zone(300, depth, Pointer::offDock), strip(300, depth));
    };
    if (GetParam() == DockEdge::left || GetParam() == DockEdge::top) {
        EXPECT_EQ(edgeAndBeyond(-2), std::pair(true, true));
    } else {
        EXPECT_EQ(edgeAndBeyond(-1.9999), std::pair(true, true));
    }
    EXPECT_EQ(edgeAndBeyond(-2.0001), std::pair(false, false));
}

TEST_P(EveryEdge, revealStripIs3PointsDeepAndAsLongAsTheRow) {
    const double start = 79.28;
    EXPECT_TRUE(strip(start + 0.001, 2.999));
    EXPECT_FALSE(strip(start + 0.001, 3.001));
    EXPECT_FALSE(strip(start - 0.001, 1));
    EXPECT_TRUE(strip(start + 549.999, 1));
    EXPECT_FALSE(strip(start + 550.001, 1));
}

TEST_P(EveryEdge, inputZoneHoldsExactlyTheWholePointsInTheZone) {
    for (const Pointer before : {Pointer::offDock, Pointer::onDock}) {
        const QRect region = geometry.inputZone(before);
        const QRect panel(QPoint(0, 0), geometry.panelSize().toSize());
        for (int x = 0; x < panel.width(); x += 1) {
            for (const int y : {0, region.top() - 1, region.top(), region.bottom(), region.bottom() + 1,
                                panel.bottom(), panel.height() / 2}) {
                if (panel.contains(x, y)) {
                    ASSERT_EQ(region.contains(x, y),
                              geometry.isInZone(QPointF(x, y) - geometry.frameOrigin(), before))
                        << x << " " << y;
                }
            }
        }
        for (int y = 0; y < panel.height(); ++y) {
            const int x = panel.width() / 2;
            ASSERT_EQ(region.contains(x, y),
                      geometry.isInZone(QPointF(x, y) - geometry.frameOrigin(), before))
                << x << " " << y;
        }
    }
}

TEST_P(EveryEdge, roundingMovesNothingAwayFromTheEdge) {
    const QSize frame = geometry.frameSize();
    EXPECT_EQ(frame, isHorizontal(GetParam()) ? QSize(709, 163) : QSize(327, 709));
    // The middle of the window's side at the screen edge is at depth 0.
    const QPointF sides[] = {QPointF(350, frame.height()), QPointF(0, 350), QPointF(frame.width(), 350),
                             QPointF(350, 0)};
    const QPointF side = sides[static_cast<std::size_t>(GetParam())];
    EXPECT_NEAR(geometry.depth(side - geometry.frameOrigin()), 0, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(DockGeometry, EveryEdge,
                         testing::Values(DockEdge::bottom, DockEdge::left, DockEdge::right, DockEdge::top),
                         [](const auto& edge) { return std::string(rawValue(edge.param)); });

} // namespace
} // namespace quillary
