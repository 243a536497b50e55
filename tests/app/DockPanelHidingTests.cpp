#include "tests/app/DockPanelFixture.h"

namespace quillary::test {
namespace {

class DockPanelHidingTest : public DockPanelTest {};

TEST_F(DockPanelHidingTest, withoutAutoHideTheDockNeverHides) {
    point(640, 860);
    point(640, 300);
    wait(60);
    EXPECT_FALSE(model().hidden());
}

TEST_F(DockPanelHidingTest, hides600MillisecondsAfterThePointerFirstLeft) {
    setAutoHide(true);
    platform.pointer().moveTo(atTheEdge);
    platform.pointer().moveTo(onIcon);
    ASSERT_FALSE(model().hidden());
    platform.pointer().moveTo(elsewhere);
    wait(0.3);
    point(600, 310);
    wait(0.29);
    EXPECT_FALSE(model().hidden());
    wait(0.01);
    EXPECT_TRUE(model().hidden());
    EXPECT_TRUE(window().inputRegion.isEmpty());
}

TEST_F(DockPanelHidingTest, leavingAndReturningWithin600msKeepsTheDock) {
    setAutoHide(true);
    platform.pointer().moveTo(atTheEdge);
    platform.pointer().moveTo(onIcon);
    platform.pointer().moveTo(elsewhere);
    wait(0.59);
    platform.pointer().moveTo(onIcon);
    wait(10);
    EXPECT_FALSE(model().hidden());
}

TEST_F(DockPanelHidingTest, theStripReaches2PointsBeyondTheWindow) {
    setAutoHide(true);
    point(640, 902.5);
    EXPECT_TRUE(model().hidden());
    point(640, 901.5);
    EXPECT_FALSE(model().hidden());
}

TEST_F(DockPanelHidingTest, aDockThatMovesUnderARestingPointerDoesNotReactToIt) {
    platform.pointer().place = QPointF(640, 20);
    configure([](DockConfig& config) { config.edge = DockEdge::top; });
    turn();
    ASSERT_TRUE(panel().frame().contains(640, 20));
    EXPECT_EQ(model().mouse(), std::nullopt);
}

TEST_F(DockPanelHidingTest, theStripAtTheEdgeRevealsAtOnce) {
    setAutoHide(true);
    ASSERT_TRUE(model().hidden());
    point(640, 896);
    EXPECT_TRUE(model().hidden());
    point(640, 897);
    EXPECT_FALSE(model().hidden());
}

TEST_F(DockPanelHidingTest, theStripIsAsLongAsTheRow) {
    setAutoHide(true);
    // The row spans 567 + 14 … 567 + 132.
    point(580, 899);
    point(700, 899);
    EXPECT_TRUE(model().hidden());
    point(581, 899);
    EXPECT_FALSE(model().hidden());
}

TEST_F(DockPanelHidingTest, theStripFollowsANewRowBeforeTheWindowDoes) {
    setAutoHide(true);
    turn();
    configure([](DockConfig& config) { config.items.emplace_back("/Applications/Third.app"); });
    ASSERT_EQ(window().placed, QRect(567, 775, 146, 125));
    // In the window's coordinates the new row spans 14 … 186, and the window ends at 146.
    point(567 + 187, 899);
    EXPECT_TRUE(model().hidden());
    point(567 + 186, 899);
    EXPECT_FALSE(model().hidden());
}

TEST_F(DockPanelHidingTest, aHiddenDockHasNoPointerAndTakesNoClicks) {
    setAutoHide(true);
    platform.pointer().moveTo(onIcon);
    EXPECT_EQ(model().mouse(), std::nullopt);
    EXPECT_TRUE(window().ignoresMouseEvents);
    EXPECT_TRUE(window().inputRegion.isEmpty());
    EXPECT_EQ(model().hoveredPath(), std::nullopt);
}

TEST_F(DockPanelHidingTest, hidingClearsThePointerAtOnce) {
    platform.pointer().moveTo(onIcon);
    ASSERT_TRUE(model().mouse().has_value());
    setAutoHide(true);
    EXPECT_TRUE(model().hidden());
    EXPECT_EQ(model().mouse(), std::nullopt);
    EXPECT_TRUE(window().ignoresMouseEvents);
}

TEST_F(DockPanelHidingTest, switchingAutoHideOffShowsTheDock) {
    setAutoHide(true);
    setAutoHide(false);
    EXPECT_FALSE(model().hidden());
}

TEST_F(DockPanelHidingTest, aConfigurationThatLeavesAutoHideAloneDoesNotHideARevealedDock) {
    setAutoHide(true);
    platform.pointer().moveTo(atTheEdge);
    ASSERT_FALSE(model().hidden());
    configure([](DockConfig& config) { config.iconSize = 64; });
    EXPECT_FALSE(model().hidden());
}

TEST_F(DockPanelHidingTest, aPendingHideDoesNotStrandADockWhoseAutoHideIsSwitchedOff) {
    setAutoHide(true);
    platform.pointer().moveTo(atTheEdge);
    platform.pointer().moveTo(onIcon);
    platform.pointer().moveTo(elsewhere);
    setAutoHide(false);
    wait(5);
    EXPECT_FALSE(model().hidden());
}

TEST_F(DockPanelHidingTest, theStripOfAWindowThatWasMovedIsAtItsEdge) {
    setAutoHide(true);
    turn();
    window().insistOn(window().placed.translated(0, -30));
    platform.pointer().moveTo(atTheEdge);
    EXPECT_TRUE(model().hidden());
    point(640, 869);
    EXPECT_FALSE(model().hidden());
}

} // namespace
} // namespace quillary::test
