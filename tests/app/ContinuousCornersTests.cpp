#include "app/view/ContinuousCorners.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace quillary::test {
namespace {

/// A cubic of a path, by its four control points.
struct Cubic {
    QPointF points[4];

    /// 1 / points.
    [[nodiscard]] double curvature(double t) const {
        const double u = 1 - t;
        const QPointF first = 3 * (u * u * (points[1] - points[0]) + 2 * u * t * (points[2] - points[1]) +
                                   t * t * (points[3] - points[2]));
        const QPointF second =
            6 * (u * (points[2] - 2 * points[1] + points[0]) + t * (points[3] - 2 * points[2] + points[1]));
        const double cross = first.x() * second.y() - first.y() * second.x();
        return std::abs(cross) / std::pow(std::hypot(first.x(), first.y()), 3);
    }
};

/// The cubics from the path's start to the first straight line.
std::vector<Cubic> firstCorner(const QPainterPath& path) {
    std::vector<Cubic> result;
    for (int i = 1; i + 2 < path.elementCount();) {
        const QPointF here = path.elementAt(i - 1);
        const QPointF next = path.elementAt(i);
        if (path.elementAt(i).isCurveTo()) {
            result.push_back({{here, next, path.elementAt(i + 1), path.elementAt(i + 2)}});
            i += 3;
        } else if (std::hypot(next.x() - here.x(), next.y() - here.y()) < 1e-6) {
            // Rounding between two parts.
            ++i;
        } else {
            break;
        }
    }
    return result;
}

TEST(ContinuousCorners, fillExactlyTheirRectangle) {
    const QRectF rect(10, 20, 200, 71);
    for (const double radius : {0.0, 4.0, 18.0, 35.5, 400.0}) {
        const QRectF bounds = ContinuousCorners::path(rect, radius).boundingRect();
        EXPECT_NEAR(bounds.left(), 10, 1e-6) << radius;
        EXPECT_NEAR(bounds.top(), 20, 1e-6) << radius;
        EXPECT_NEAR(bounds.right(), 210, 1e-6) << radius;
        EXPECT_NEAR(bounds.bottom(), 91, 1e-6) << radius;
    }
}

TEST(ContinuousCorners, leaveTheSidesAt16TimesTheRadius) {
    const QPainterPath path = ContinuousCorners::path(QRectF(0, 0, 200, 100), 20);
    EXPECT_EQ(QPointF(path.elementAt(0)), QPointF(32, 0));
    // On a side of 71 points two radii of 35.5 have no room for more than the arcs.
    const QPainterPath capsule = ContinuousCorners::path(QRectF(0, 0, 400, 71), 35.5);
    EXPECT_NEAR(QPointF(capsule.elementAt(0)).x(), 56.8, 1e-9);
    EXPECT_TRUE(capsule.contains(QPointF(0.05, 35.5)));
}

TEST(ContinuousCorners, cutTheCornerLessThanACircleDoesNearTheSidesAndMoreBeforeThem) {
    const QPainterPath smooth = ContinuousCorners::path(QRectF(0, 0, 200, 100), 20);
    QPainterPath round;
    round.addRoundedRect(QRectF(0, 0, 200, 100), 20, 20);
    // Where the circle still runs along the side, the smooth corner has left it.
    EXPECT_TRUE(round.contains(QPointF(20.5, 0.1)));
    EXPECT_FALSE(smooth.contains(QPointF(20.5, 0.1)));
    // On the diagonal both have the circle's arc.
    const double onArc = 20 - 20 * std::sqrt(0.5);
    EXPECT_TRUE(smooth.contains(QPointF(onArc + 0.2, onArc + 0.2)));
    EXPECT_FALSE(smooth.contains(QPointF(onArc - 0.2, onArc - 0.2)));
}

TEST(ContinuousCorners, curvatureRunsInInsteadOfJumping) {
    constexpr double radius = 20;
    const auto corner = firstCorner(ContinuousCorners::path(QRectF(0, 0, 200, 100), radius));
    ASSERT_GE(corner.size(), 3U);
    EXPECT_NEAR(corner.front().curvature(0), 0, 1e-9);
    EXPECT_NEAR(corner.back().curvature(1), 0, 1e-9);
    for (std::size_t i = 1; i < corner.size(); ++i) {
        EXPECT_NEAR(corner[i].curvature(0), corner[i - 1].curvature(1), 0.02 / radius) << i;
    }
    double sharpest = 0;
    for (const Cubic& part : corner) {
        for (int percent = 0; percent <= 100; ++percent) {
            sharpest = std::max(sharpest, part.curvature(percent / 100.0));
        }
    }
    EXPECT_GT(sharpest, 1 / radius);
    EXPECT_LT(sharpest, 1.35 / radius);
}

TEST(ContinuousCorners, areTheSameAtAllFourCorners) {
    const QPainterPath path = ContinuousCorners::path(QRectF(-60, -40, 120, 80), 22);
    for (int column = 0; column <= 40; ++column) {
        for (int row = 0; row <= 27; ++row) {
            const double x = 0.25 + 1.5 * column;
            const double y = 0.25 + 1.5 * row;
            const bool inside = path.contains(QPointF(x, y));
            EXPECT_EQ(path.contains(QPointF(-x, y)), inside) << x << ", " << y;
            EXPECT_EQ(path.contains(QPointF(x, -y)), inside) << x << ", " << y;
            EXPECT_EQ(path.contains(QPointF(-x, -y)), inside) << x << ", " << y;
        }
    }
}

} // namespace
} // namespace quillary::test
