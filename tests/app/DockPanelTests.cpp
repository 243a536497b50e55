#include "app/view/DockView.h"
#include "tests/app/DockPanelFixture.h"

namespace quillary::test {
namespace {

TEST_F(DockPanelTest, standsCentredOnItsEdgeOfTheVisibleFrame) {
    EXPECT_EQ(panel().frame(), QRect(567, 775, 146, 125));
    EXPECT_EQ(window().placed, panel().frame());
    configure([](DockConfig& config) { config.edge = DockEdge::top; });
    turn();
    EXPECT_EQ(panel().frame(), QRect(567, 0, 146, 125));
    configure([](DockConfig& config) { config.edge = DockEdge::left; });
    turn();
    EXPECT_EQ(panel().frame(), QRect(0, 377, 289, 146));
    configure([](DockConfig& config) { config.edge = DockEdge::right; });
    turn();
    EXPECT_EQ(panel().frame(), QRect(991, 377, 289, 146));
}

TEST_F(DockPanelTest, theRowIsMadeForChangesAndNotForMovements) {
    const Count rows(&model(), &DockModel::rowChanged);
    const DockCell* cells = model().cells().data();
    const double* widths = model().row().geometry.widths.data();
    for (int x = 560; x < 720; x += 4) {
        point(x, 860);
        EXPECT_EQ(model().mouse().has_value(), x >= 576 && x <= 704) << x;
    }
    // Nothing made them again: they are where they were.
    EXPECT_EQ(rows.times, 0);
    EXPECT_EQ(model().cells().data(), cells);
    EXPECT_EQ(model().row().geometry.widths.data(), widths);
    platform.workspace().launch("/Applications/A.app");
    EXPECT_EQ(rows.times, 1);
    EXPECT_EQ(model().cells().size(), 4U);
    configure([](DockConfig& config) { config.showRunning = false; });
    EXPECT_EQ(rows.times, 2);
    EXPECT_EQ(model().row(), (DockRow{model().cells(), model().geometry(model().cells())}));
    EXPECT_EQ(model().cells().size(), 2U);
}

TEST_F(DockPanelTest, movesToItsNewPlaceOnTheNextTurnOnly) {
    const QRect before = window().placed;
    configure([](DockConfig& config) { config.edge = DockEdge::top; });
    EXPECT_EQ(window().placed, before);
    turn();
    EXPECT_NE(window().placed, before);
}

TEST_F(DockPanelTest, severalChangesInOneTurnRepositionOnce) {
    const int before = window().frameChanges;
    configure([](DockConfig& config) { config.iconSize = 64; });
    platform.workspace().launch("/Applications/A.app");
    platform.workspace().launch("/Applications/B.app");
    turn();
    EXPECT_EQ(window().frameChanges, before + 1);
}

TEST_F(DockPanelTest, growsWithTheRunningApplications) {
    platform.workspace().launch("/Applications/A.app");
    turn();
    // One separator and one icon more: 13 + 48 + 2 · 6.
    EXPECT_EQ(panel().frame().width(), 146 + 73);
}

TEST_F(DockPanelTest, anOversizedPanelKeepsItsLeftOrBottomEndInside) {
    const QRectF visible(100, 50, 300, 200);
    EXPECT_EQ(DockPanel::placement(visible, DockEdge::bottom, {500, 100}), QRect(100, 150, 500, 100));
    EXPECT_EQ(DockPanel::placement(visible, DockEdge::left, {100, 500}), QRect(100, -250, 100, 500));
    EXPECT_EQ(DockPanel::placement(visible, DockEdge::top, {100, 500}), QRect(200, -250, 100, 500));
    EXPECT_EQ(DockPanel::placement(visible, DockEdge::right, {500, 100}), QRect(100, 100, 500, 100));
}

TEST_F(DockPanelTest, wholePointsKeepTheAnchoredEdgeExact) {
    const QRectF visible(0, 0, 1280, 900);
    EXPECT_EQ(DockPanel::placement(visible, DockEdge::bottom, {709, 163}), QRect(286, 737, 709, 163));
    EXPECT_EQ(DockPanel::placement(QRectF(0.4, 0.3, 1280, 900), DockEdge::bottom, {709, 164}).bottom(), 899);
    EXPECT_EQ(DockPanel::placement(visible, DockEdge::right, {327, 709}), QRect(953, 96, 327, 709));
}

TEST_F(DockPanelTest, keepsTheLengthOfTheScreensVisibleFrame) {
    EXPECT_DOUBLE_EQ(model().maxLength(), 1280);
    configure([](DockConfig& config) { config.edge = DockEdge::left; });
    turn();
    EXPECT_DOUBLE_EQ(model().maxLength(), 900);
}

TEST_F(DockPanelTest, presentShowsAfter50MillisecondsInItsPlace) {
    platform.screens().set({screenNamed("LEFT", leftFrame), screenNamed("RIGHT", rightFrame)});
    EXPECT_TRUE(model(1).hidden());
    EXPECT_EQ(window(1).ordersFront, 1);
    EXPECT_FALSE(window(1).placed.isEmpty());
    EXPECT_TRUE(window(1).inputRegion.isEmpty());
    wait(0.049);
    EXPECT_TRUE(model(1).hidden());
    wait(0.001);
    EXPECT_FALSE(model(1).hidden());
    EXPECT_FALSE(window(1).inputRegion.isEmpty());
}

TEST_F(DockPanelTest, aDockIsNotSeenBeforeItSlidesIn) {
    platform.screens().set({screenNamed("LEFT", leftFrame), screenNamed("RIGHT", rightFrame)});
    EXPECT_DOUBLE_EQ(panel(rightKey).contents().scene().opacity, 0);
    wait(0.1);
    EXPECT_GT(panel(rightKey).contents().scene().opacity, 0);
    EXPECT_LT(panel(rightKey).contents().scene().opacity, 1);
    wait(2);
    EXPECT_DOUBLE_EQ(panel(rightKey).contents().scene().opacity, 1);
}

TEST_F(DockPanelTest, aSwitchedOffDockIsNeitherHiddenNorMeasured) {
    platform.screens().set({});
    configure([](DockConfig& config) { config.enabled = false; });
    platform.screens().set({screenNamed("LEFT", leftFrame)});
    EXPECT_FALSE(model().hidden());
    EXPECT_DOUBLE_EQ(model().maxLength(), 0);
}

TEST_F(DockPanelTest, presentLeavesASelfHidingDockHidden) {
    setAutoHide(true);
    configure([](DockConfig& config) { config.enabled = false; });
    configure([](DockConfig& config) { config.enabled = true; });
    wait(1);
    EXPECT_TRUE(model().hidden());
}

TEST_F(DockPanelTest, thePointerOnTheDockIsToldInPanelCoordinates) {
    point(640, 860);
    EXPECT_EQ(model().mouse(), QPointF(73, 85));
    EXPECT_FALSE(window().ignoresMouseEvents);
    point(640, 300);
    EXPECT_EQ(model().mouse(), std::nullopt);
    EXPECT_TRUE(window().ignoresMouseEvents);
}

TEST_F(DockPanelTest, thePointerOverTheLabelRoomIsNotOnTheDock) {
    // Inside the panel's frame, 80 points from the edge where the zone ends at 79.
    point(640, 820);
    EXPECT_EQ(model().mouse(), std::nullopt);
    point(640, 821);
    EXPECT_TRUE(model().mouse().has_value());
}

TEST_F(DockPanelTest, thePointerOnAnotherScreenBelowTheEdgeIsNotOnTheDock) {
    // One point beyond the edge is in the zone's tolerance, but two are outside of the frame.
    point(640, 900);
    EXPECT_TRUE(model().mouse().has_value());
    point(640, 901);
    EXPECT_FALSE(model().mouse().has_value());
}

TEST_F(DockPanelTest, clicksAreTakenInTheRestingZoneAndMoreOnceMagnified) {
    configure([](DockConfig& config) {
        config.magnification = Magnification::subtle;
        config.iconSize = 40;
    });
    turn();
    // 40 · 0.35 · 3.4 = 47.6 to grow in, panel 177.6 × 131; the row starts at 37.8 and is 102 long.
    EXPECT_EQ(window().inputRegion, QRegion(QRect(QPoint(32, 60), QPoint(145, 130))));
    point(640, 860);
    EXPECT_EQ(window().inputRegion, QRegion(QRect(QPoint(8, 46), QPoint(169, 130))));
    point(640, 300);
    EXPECT_EQ(window().inputRegion, QRegion(QRect(QPoint(32, 60), QPoint(145, 130))));
}

TEST_F(DockPanelTest, theZoneWidensOnlyOnceThePointerIsOnTheDock) {
    configure([](DockConfig& config) { config.magnification = Magnification::subtle; });
    turn();
    const double top = panel().frame().top();
    // 141.8 − 50 = 91.8 from the edge: between the resting 79 and the magnified 95.8.
    point(640, top + 50);
    EXPECT_FALSE(model().mouse().has_value());
    point(640, 860);
    point(640, top + 50);
    EXPECT_TRUE(model().mouse().has_value());
}

TEST_F(DockPanelTest, aDockThatGrowsUnderAStandingPointerKnowsWhereThePointerIsNow) {
    point(640, 860);
    ASSERT_EQ(model().mouse(), QPointF(73, 85));
    platform.workspace().launch("/Applications/A.app");
    turn();
    // 219 points wide, it begins at 531.
    EXPECT_EQ(model().mouse(), QPointF(640 - 531, 85));
}

TEST_F(DockPanelTest, theStripIs3PointsDeepThoughThePanelsDepthIsNoWholeNumber) {
    configure([](DockConfig& config) {
        config.magnification = Magnification::big;
        config.autoHide = true;
    });
    turn();
    ASSERT_EQ(panel().frame().height(), 163);
    point(640, 896);
    EXPECT_TRUE(model().hidden());
    point(640, 897);
    EXPECT_FALSE(model().hidden());
}

TEST_F(DockPanelTest, aLargeStoredSizeIsLaidOutAsFarAsTheScreenIsLong) {
    platform.screens().set({screenNamed("LEFT", QRectF(0, 0, 3840, 2160))});
    configure([](DockConfig& config) {
        config.items = {mail};
        config.iconSize = 2000;
    });
    turn();
    EXPECT_DOUBLE_EQ(model().row().geometry.size, 2000);
    EXPECT_EQ(panel().frame().width(), 2044);
    configure([](DockConfig& config) { config.iconSize = 1e6; });
    turn();
    EXPECT_EQ(panel().frame().width(), 3840);
    configure([](DockConfig& config) {
        config.items = {};
        config.iconSize = 2000;
    });
    turn();
    EXPECT_DOUBLE_EQ(model().row().geometry.size, 2000);
}

TEST_F(DockPanelTest, anAbsurdStoredSizeOfAnEmptyDockGivesAWindowThatCanBe) {
    for (const double size : {1e6, 1e308}) {
        configure([size](DockConfig& config) {
            config.items = {};
            config.iconSize = size;
            config.magnification = Magnification::big;
        });
        turn();
        EXPECT_LT(panel().frame().width(), 8192);
        EXPECT_LT(panel().frame().height(), 8192);
        EXPECT_DOUBLE_EQ(stored().docks[0].iconSize, size);
    }
}

TEST_F(DockPanelTest, aClosedPanelLeavesNothingBehindThatCallsBack) {
    manager->setShowMemory(false);
    setAutoHide(true);
    platform.pointer().moveTo(atTheEdge);
    platform.pointer().moveTo(onIcon);
    platform.pointer().moveTo(elsewhere);
    configure([](DockConfig& config) { config.enabled = false; });
    EXPECT_TRUE(platform.windows.empty());
    EXPECT_EQ(manager->panel(leftKey), nullptr);
    wait(5);
    platform.pointer().moveTo(atTheEdge);
    EXPECT_EQ(platform.scheduler().pending(), 0U);
}

TEST_F(DockPanelTest, thePointerIsFollowedWhereTheWindowManagerPutTheWindow) {
    point(640, 860);
    ASSERT_EQ(model().mouse(), QPointF(73, 85));
    window().insistOn(window().placed.translated(-20, -30));
    EXPECT_EQ(model().mouse(), QPointF(93, 115));
    point(620, 830);
    EXPECT_EQ(model().mouse(), QPointF(73, 85));
    EXPECT_EQ(panel().frame(), QRect(547, 745, 146, 125));
    window().insistOn(window().placed.translated(10, 0));
    EXPECT_EQ(model().mouse(), QPointF(63, 85));
}

TEST_F(DockPanelTest, aCrossingWithoutMovementAsksForThePointer) {
    const int before = platform.pointer().refreshes;
    Q_EMIT window().pointerCrossed();
    EXPECT_EQ(platform.pointer().refreshes, before + 1);
}

} // namespace
} // namespace quillary::test
