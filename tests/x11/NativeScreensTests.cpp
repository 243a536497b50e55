#include "platform/x11/NativeScreens.h"

#include <gtest/gtest.h>

namespace quillary {

TEST(NativeScreens, atScaleOnePointsArePixels) {
    const NativeScreen screen{QRect(1280, 0, 1120, 800), 1.0};
    EXPECT_EQ(screen.toPoints(screen.geometry), QRectF(1280, 0, 1120, 800));
    EXPECT_EQ(screen.toPoints(QPoint(1300, 50)), QPointF(1300, 50));
}

TEST(NativeScreens, theOriginStaysAndTheInsideIsScaled) {
    const NativeScreen screen{QRect(1280, 100, 1120, 800), 2.0};
    EXPECT_EQ(screen.toPoints(screen.geometry), QRectF(1280, 100, 560, 400));
    EXPECT_EQ(screen.toPoints(QPoint(1380, 200)), QPointF(1330, 150));
    EXPECT_EQ(screen.toPoints(QPoint(1281, 100)), QPointF(1280.5, 100));
}

TEST(NativeScreens, framesAreWholePoints) {
    const NativeScreen screen{QRect(0, 0, 1280, 900), 1.5};
    EXPECT_EQ(screen.toPoints(screen.geometry), QRectF(0, 0, 853, 600));
}

TEST(NativeScreens, aPointBelongsToTheScreenThatHoldsItElseToTheNearest) {
    const std::vector<NativeScreen> screens = {{QRect(0, 0, 1280, 900), 1.0},
                                               {QRect(1280, 0, 1120, 800), 2.0}};
    EXPECT_EQ(toGlobalPoints(screens, QPoint(1279, 10)), QPointF(1279, 10));
    EXPECT_EQ(toGlobalPoints(screens, QPoint(1282, 10)), QPointF(1281, 5));
    EXPECT_EQ(toGlobalPoints(screens, QPoint(1482, 850)), QPointF(1381, 425)) << "below the second screen";
    EXPECT_EQ(toGlobalPoints({}, QPoint(3, 4)), QPointF(3, 4));
}

TEST(NativeScreens, aRectangleIsTheSumOfItsPartsOnTheScreens) {
    const std::vector<NativeScreen> screens = {{QRect(0, 0, 1280, 900), 1.0},
                                               {QRect(1280, 0, 1120, 800), 2.0}};
    EXPECT_EQ(toGlobalPoints(screens, QRect(0, 0, 1280, 900)), QRectF(0, 0, 1280, 900));
    EXPECT_EQ(toGlobalPoints(screens, QRect(1280, 0, 1120, 800)), QRectF(1280, 0, 560, 400));
    EXPECT_EQ(toGlobalPoints(screens, QRect(0, 0, 2400, 800)), QRectF(0, 0, 1840, 800));
    EXPECT_EQ(toGlobalPoints(screens, QRect(3000, 0, 10, 20)), QRectF(2140, 0, 10, 20)) << "on no screen";
    EXPECT_EQ(toGlobalPoints({}, QRect(1, 2, 3, 4)), QRectF(1, 2, 3, 4));
}

} // namespace quillary
