#include "platform/x11/ShapeRectangles.h"

#include <gtest/gtest.h>

namespace quillary {

namespace {

using Numbers = std::vector<std::vector<int>>;

Numbers numbers(const std::vector<xcb_rectangle_t>& rectangles) {
    Numbers result;
    for (const auto& rect : rectangles) {
        result.push_back({rect.x, rect.y, rect.width, rect.height});
    }
    return result;
}

} // namespace

TEST(ShapeRectangles, anEmptyRegionHasNone) {
    EXPECT_TRUE(shapeRectangles(QRegion(), 1.0).empty());
}

TEST(ShapeRectangles, pointsBecomeDevicePixels) {
    EXPECT_EQ(numbers(shapeRectangles(QRegion(10, 20, 30, 40), 2.0)), (Numbers{{20, 40, 60, 80}}));
}

TEST(ShapeRectangles, neighboursStayJoinedAtFractionalScales) {
    const QRegion region = QRegion(0, 0, 3, 3) + QRegion(0, 3, 5, 4);
    EXPECT_EQ(numbers(shapeRectangles(region, 1.5)), (Numbers{{0, 0, 5, 5}, {0, 5, 8, 6}}));
}

TEST(ShapeRectangles, whatTheProtocolCannotHoldIsCutOff) {
    EXPECT_EQ(numbers(shapeRectangles(QRegion(-100000, -5, 300000, 10), 1.0)),
              (Numbers{{-32768, -5, 65535, 10}}));
}

} // namespace quillary
