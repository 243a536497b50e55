#include "app/view/Animation.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quillary {
namespace {

TEST(EaseOut, startsAtZeroAndArrivesWithoutSpeed) {
    EXPECT_DOUBLE_EQ(easeOut(0), 0);
    EXPECT_DOUBLE_EQ(easeOut(0.5), 0.875);
    EXPECT_DOUBLE_EQ(easeOut(1), 1);
    EXPECT_DOUBLE_EQ(easeOut(-3), 0);
    EXPECT_DOUBLE_EQ(easeOut(7), 1);
}

TEST(Spring, isTheClosedSolutionOfItsEquation) {
    Spring spring(0.32, 0.82, 0);
    spring.moveTo(1, 10);
    // x'' + 2 z w x' + w² (x − 1) = 0, integrated in small steps.
    const double frequency = 2 * 3.14159265358979323846 / 0.32;
    double x = 0;
    double v = 0;
    const double step = 1e-6;
    for (int i = 1; i <= 300000; ++i) {
        v += step * (-2 * 0.82 * frequency * v - frequency * frequency * (x - 1));
        x += step * v;
        if (i % 50000 == 0) {
            EXPECT_NEAR(spring.value(10 + i * step), x, 1e-4) << i;
        }
    }
}

TEST(Spring, anInterruptedMovementGoesOnFromWhereItIs) {
    Spring spring(0.32, 0.82, 0);
    spring.moveTo(1, 0);
    const double before = spring.value(0.1);
    const double speed = (spring.value(0.1 + 1e-6) - spring.value(0.1 - 1e-6)) / 2e-6;
    spring.moveTo(0, 0.1);
    EXPECT_NEAR(spring.value(0.1), before, 1e-12);
    EXPECT_NEAR((spring.value(0.1 + 1e-6) - spring.value(0.1)) / 1e-6, speed, 0.01);
}

TEST(Spring, doesNotSettleWhereItCrossesItsTarget) {
    Spring spring(0.3, 0.85, 1);
    spring.moveTo(0, 0);
    double crossing = 0;
    while (spring.value(crossing) > 0) {
        crossing += 1e-5;
    }
    EXPECT_NEAR(spring.value(crossing), 0, 1e-4);
    EXPECT_FALSE(spring.settled(crossing));
}

TEST(Spring, settlesAtItsTarget) {
    Spring spring(0.32, 0.82, 1);
    EXPECT_TRUE(spring.settled(0));
    spring.moveTo(0, 5);
    EXPECT_FALSE(spring.settled(5.05));
    EXPECT_TRUE(spring.settled(6));
    EXPECT_NEAR(spring.value(6), 0, 1e-3);
    spring.jumpTo(1);
    EXPECT_TRUE(spring.settled(6));
    EXPECT_DOUBLE_EQ(spring.value(6), 1);
}

} // namespace
} // namespace quillary
