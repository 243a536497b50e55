#include "app/view/ShelfShape.h"

#include <gtest/gtest.h>

namespace quillary::test {
namespace {

using Points = QList<QPointF>;

// 41.4 points deep: a dock of 48-point icons. The slant is at its cap.
TEST(ShelfShape, isATrapezoidWithItsLongSideAtTheEdge) {
    const QRectF lying(10, 100, 300, 41.4);
    EXPECT_EQ(ShelfShape{DockEdge::bottom}.path(lying),
              (Points{{10, 141.4}, {310, 141.4}, {282, 100}, {38, 100}}));
    EXPECT_EQ(ShelfShape{DockEdge::top}.path(lying),
              (Points{{10, 100}, {310, 100}, {282, 141.4}, {38, 141.4}}));
    const QRectF standing(4, 10, 41.4, 300);
    EXPECT_EQ(ShelfShape{DockEdge::left}.path(standing),
              (Points{{4, 10}, {4, 310}, {45.4, 282}, {45.4, 38}}));
    EXPECT_EQ(ShelfShape{DockEdge::right}.path(standing),
              (Points{{45.4, 10}, {45.4, 310}, {4, 282}, {4, 38}}));
}

TEST(ShelfShape, shallowShelvesSlantLess) {
    EXPECT_DOUBLE_EQ(ShelfShape::slant(20), 18);
    EXPECT_NEAR(ShelfShape::slant(31.1), 27.99, 1e-9);
    EXPECT_DOUBLE_EQ(ShelfShape::slant(31.2), 28);
    EXPECT_DOUBLE_EQ(ShelfShape::slant(100), 28);
}

} // namespace
} // namespace quillary::test
