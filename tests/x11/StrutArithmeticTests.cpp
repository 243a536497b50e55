#include "platform/x11/StrutArithmetic.h"

#include <gtest/gtest.h>

namespace quillary {

namespace {

constexpr QSize desktop(2400, 900);
constexpr QRect left(0, 0, 1280, 900);
constexpr QRect right(1280, 0, 1120, 800);

QRect free(const QRect& screen, const std::vector<Strut>& struts) {
    return StrutArithmetic::visibleFrame(screen, desktop, struts);
}

} // namespace

TEST(StrutArithmetic, withoutStrutsAllIsFree) {
    EXPECT_EQ(free(left, {}), left);
}

TEST(StrutArithmetic, aTopPanelCountsForItsOwnScreenOnly) {
    const Strut panel{.top = 30, .topStart = 0, .topEnd = 1279};
    EXPECT_EQ(free(left, {panel}), QRect(0, 30, 1280, 870));
    EXPECT_EQ(free(right, {panel}), right);
}

TEST(StrutArithmetic, aBottomPanelOfAShorterScreenIsMeasuredFromTheDesktop) {
    // 40 pixels at the bottom of a screen that ends 100 above the desktop's bottom.
    const Strut panel{.bottom = 140, .bottomStart = 1280, .bottomEnd = 2399};
    EXPECT_EQ(free(right, {panel}), QRect(1280, 0, 1120, 760));
    EXPECT_EQ(free(left, {panel}), left);
}

TEST(StrutArithmetic, aStrutThatEndsBelowAShorterScreenTakesNothingOfIt) {
    const Strut panel{.bottom = 60, .bottomStart = 0, .bottomEnd = 2399};
    EXPECT_EQ(free(right, {panel}), right);
    EXPECT_EQ(free(left, {panel}), QRect(0, 0, 1280, 840));
}

TEST(StrutArithmetic, aPanelAtAnInnerEdgeSwallowsNoNeighbour) {
    const Strut panel{.left = 1330, .leftStart = 0, .leftEnd = 799};
    EXPECT_EQ(free(left, {panel}), left);
    EXPECT_EQ(free(right, {panel}), QRect(1330, 0, 1070, 800));
}

TEST(StrutArithmetic, aRightPanelCountsForTheRightScreenOnly) {
    const Strut panel{.right = 50, .rightStart = 0, .rightEnd = 799};
    EXPECT_EQ(free(right, {panel}), QRect(1280, 0, 1070, 800));
    EXPECT_EQ(free(left, {panel}), left);
}

TEST(StrutArithmetic, aRangeMustMeetTheScreenByOnePixel) {
    EXPECT_EQ(free(right, {Strut{.top = 20, .topStart = 0, .topEnd = 1280}}), QRect(1280, 20, 1120, 780));
    EXPECT_EQ(free(right, {Strut{.top = 20, .topStart = 0, .topEnd = 1279}}), right);
    EXPECT_EQ(free(left, {Strut{.top = 20, .topStart = 1279, .topEnd = 2000}}), QRect(0, 20, 1280, 880));
    EXPECT_EQ(free(left, {Strut{.top = 20, .topStart = 1280, .topEnd = 2000}}), left);
}

TEST(StrutArithmetic, theLargestOfSeveralCounts) {
    const Strut small{.top = 20, .topStart = 0, .topEnd = 2399};
    const Strut large{.top = 35, .topStart = 0, .topEnd = 1279};
    EXPECT_EQ(free(left, {large, small}), QRect(0, 35, 1280, 865));
    EXPECT_EQ(free(left, {small, large}), QRect(0, 35, 1280, 865));
}

TEST(StrutArithmetic, absurdNumbersAreIgnored) {
    constexpr std::uint32_t huge = 0xFFFFFFFF;
    const Strut broken{.left = huge,
                       .right = huge,
                       .top = huge,
                       .bottom = huge,
                       .leftEnd = huge,
                       .rightEnd = huge,
                       .topEnd = huge,
                       .bottomEnd = huge};
    EXPECT_EQ(free(left, {broken}), left);
    EXPECT_EQ(free(right, {broken}), right);
}

TEST(StrutArithmetic, twoThatMeetLeaveSomething) {
    const Strut above{.top = 500, .topEnd = 1279};
    const Strut below{.bottom = 500, .bottomEnd = 1279};
    EXPECT_EQ(free(left, {above, below}), QRect(0, 500, 1280, 400));
}

TEST(StrutArithmetic, thePartialPropertyGoesFirst) {
    const std::vector<std::uint32_t> partial = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    const auto strut = StrutArithmetic::parse(partial, {9, 9, 9, 9});
    ASSERT_TRUE(strut);
    EXPECT_EQ(*strut, (Strut{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
}

TEST(StrutArithmetic, theWholePropertyCountsAlongTheWholeEdge) {
    const auto strut = StrutArithmetic::parse({}, {0, 0, 25, 0});
    ASSERT_TRUE(strut);
    EXPECT_EQ(free(left, {*strut}), QRect(0, 25, 1280, 875));
    EXPECT_EQ(free(right, {*strut}), QRect(1280, 25, 1120, 775));
}

TEST(StrutArithmetic, shortOrEmptyPropertiesReserveNothing) {
    EXPECT_EQ(StrutArithmetic::parse({}, {}), std::nullopt);
    EXPECT_EQ(StrutArithmetic::parse({1, 2, 3}, {1, 2, 3}), std::nullopt);
    EXPECT_EQ(StrutArithmetic::parse({0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8}, {}), std::nullopt);
}

} // namespace quillary
