#include "platform/macos/ScreenCoordinates.h"

#include <gtest/gtest.h>

namespace quillary::test {
namespace {

// A primary screen of 1440 by 900 points, with screens of other sizes around it.
const ScreenCoordinates coordinates(900);

TEST(ScreenCoordinates, theCornersOfThePrimaryScreen) {
    EXPECT_EQ(coordinates.point(0, 0), QPointF(0, 900));
    EXPECT_EQ(coordinates.point(0, 900), QPointF(0, 0));
    EXPECT_EQ(coordinates.point(1440, 900), QPointF(1440, 0));
    EXPECT_EQ(coordinates.rect(0, 0, 1440, 900), QRectF(0, 0, 1440, 900));
}

TEST(ScreenCoordinates, aScreenAboveHasNegativeY) {
    EXPECT_EQ(coordinates.rect(0, 900, 1920, 1080), QRectF(0, -1080, 1920, 1080));
    EXPECT_EQ(coordinates.point(10, 901), QPointF(10, -1));
}

TEST(ScreenCoordinates, aScreenBelowBeginsAtThePrimaryScreensHeight) {
    EXPECT_EQ(coordinates.rect(200, -768, 1024, 768), QRectF(200, 900, 1024, 768));
    EXPECT_EQ(coordinates.point(200, -768), QPointF(200, 1668));
}

TEST(ScreenCoordinates, aScreenToTheLeftHasNegativeX) {
    EXPECT_EQ(coordinates.rect(-1280, 100, 1280, 720), QRectF(-1280, 80, 1280, 720));
}

TEST(ScreenCoordinates, visibleFramesLoseTheMenuBarAtTheTopAndTheDockAtTheBottom) {
    // 25 points of menu bar, 70 of dock.
    EXPECT_EQ(coordinates.rect(0, 70, 1440, 805), QRectF(0, 25, 1440, 805));
}

TEST(ScreenCoordinates, keepsFractionsOfPoints) {
    EXPECT_EQ(coordinates.point(0.5, 899.25), QPointF(0.5, 0.75));
}

} // namespace
} // namespace quillary::test
