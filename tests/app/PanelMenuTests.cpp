#include "app/view/DockView.h"
#include "tests/app/Fixture.h"

#include <QApplication>
#include <QMouseEvent>

#include <gmock/gmock.h>

namespace quillary::test {
namespace {

const std::string mail = "/Applications/Mail.app";
const std::string notes = "/Applications/Notes.app";

/// One dock of two items at the bottom of LEFT, no magnification: the panel is 146 × 125 at (567, 775).
class PanelMenuTest : public Desktop {
protected:
    void SetUp() override {
        startWith({mail, notes});
        configure([](DockConfig& config) { config.magnification = Magnification::off; });
        turn();
    }
    void press(Qt::MouseButton button, QPointF place) const {
        auto* view = const_cast<DockView*>(&panel().contents());
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, place - panel().frame().topLeft(), place, button,
                              type == QEvent::MouseButtonPress ? button : Qt::NoButton, Qt::NoModifier);
            QApplication::sendEvent(view, &event);
        }
    }
    void point(QPointF place) { platform.pointer().moveTo(place); }
    void wait(double seconds) { platform.scheduler().advance(seconds); }

    const QPointF onMail{605, 860};
    const QPointF onNotes{665, 860};
    const QPointF elsewhere{640, 300};
};

TEST_F(PanelMenuTest, aRightPressOpensTheMenuThere) {
    point(onNotes);
    press(Qt::RightButton, onNotes);
    ASSERT_TRUE(window().menu);
    EXPECT_EQ(window().menuLocation, QPoint(98, 85));
    EXPECT_EQ(window().menu->front().title, "Open Notes");
    EXPECT_TRUE(platform.workspace().calls.empty());
}

TEST_F(PanelMenuTest, theMenuIsForWhereThePressWasNotForTheLastMovement) {
    point(onMail);
    press(Qt::RightButton, onNotes);
    ASSERT_TRUE(window().menu);
    EXPECT_EQ(window().menu->front().title, "Open Notes");
}

TEST_F(PanelMenuTest, otherButtonsOpenNone) {
    point(onNotes);
    press(Qt::LeftButton, onNotes);
    press(Qt::MiddleButton, onNotes);
    EXPECT_EQ(window().menusOpened, 0);
}

TEST_F(PanelMenuTest, whileItIsOpenThePointerIsNotFollowed) {
    configure([](DockConfig& config) { config.autoHide = true; });
    point({640, 899});
    point(onNotes);
    ASSERT_FALSE(model().hidden());
    press(Qt::RightButton, onNotes);
    const auto mouse = model().mouse();
    ASSERT_TRUE(mouse);
    point(elsewhere);
    EXPECT_EQ(model().mouse(), mouse);
    wait(10);
    EXPECT_FALSE(model().hidden());
}

TEST_F(PanelMenuTest, whenItClosesThePointerIsLookedForOnceAndTheDockHides) {
    configure([](DockConfig& config) { config.autoHide = true; });
    point({640, 899});
    point(onNotes);
    press(Qt::RightButton, onNotes);
    point(elsewhere);
    wait(10);
    window().dismissMenu();
    EXPECT_FALSE(model().mouse());
    EXPECT_FALSE(model().hidden());
    wait(0.59);
    EXPECT_FALSE(model().hidden());
    wait(0.02);
    EXPECT_TRUE(model().hidden());
}

TEST_F(PanelMenuTest, theDockMayMoveUnderItsOpenMenu) {
    point(onNotes);
    press(Qt::RightButton, onNotes);
    configure([](DockConfig& config) { config.edge = DockEdge::top; });
    turn();
    EXPECT_TRUE(model().mouse());
    window().dismissMenu();
    EXPECT_FALSE(model().mouse());
}

TEST_F(PanelMenuTest, aDockThatGoesWithItsMenuOpenIsNotCalledBack) {
    point(onNotes);
    press(Qt::RightButton, onNotes);
    platform.screens().set({});
    EXPECT_TRUE(platform.windows.empty());
    point(elsewhere);
    wait(2);
}

TEST_F(PanelMenuTest, aChoiceMayEndTheDock) {
    point(onNotes);
    press(Qt::RightButton, onNotes);
    ASSERT_TRUE(window().menu);
    window().menu->emplace_back("End", false,
                                [this] { configure([](DockConfig& config) { config.enabled = false; }); });
    EXPECT_TRUE(window().choose({"End"}));
    EXPECT_TRUE(platform.windows.empty());
    EXPECT_EQ(manager->panel(leftKey), nullptr);
}

class FullScreenTest : public Desktop {
protected:
    void SetUp() override {
        platform.screens().connected = {screenNamed("LEFT", leftFrame), screenNamed("RIGHT", rightFrame)};
        startWith({mail, notes});
        for (const auto& key : {leftKey, rightKey}) {
            configure([](DockConfig& config) { config.magnification = Magnification::off; }, key);
        }
        wait(1);
    }
    void hideAll() const {
        for (const auto& key : {leftKey, rightKey}) {
            configure([](DockConfig& config) { config.autoHide = true; }, key);
        }
    }
    void wait(double seconds) { platform.scheduler().advance(seconds); }

    const QPointF leftStrip{640, 899};
    const QPointF rightStrip{1840, 799};
    const QPointF onLeftDock{640, 860};
};

TEST_F(FullScreenTest, nothingIsRevealedOnTheScreenThatIsCovered) {
    hideAll();
    platform.workspace().setFullScreen(leftFrame);
    platform.pointer().moveTo(leftStrip);
    EXPECT_TRUE(model(0).hidden());
    platform.pointer().moveTo(rightStrip);
    EXPECT_FALSE(model(1).hidden());
}

TEST_F(FullScreenTest, leavingItRevealsWithoutAMovement) {
    hideAll();
    platform.workspace().setFullScreen(leftFrame);
    platform.pointer().moveTo(leftStrip);
    platform.workspace().setFullScreen(std::nullopt);
    EXPECT_FALSE(model(0).hidden());
}

TEST_F(FullScreenTest, aCoveredDockHasNoPointerAndGetsItBack) {
    platform.pointer().moveTo(onLeftDock);
    ASSERT_TRUE(model(0).mouse());
    platform.workspace().setFullScreen(leftFrame);
    EXPECT_FALSE(model(0).mouse());
    platform.pointer().moveTo(onLeftDock + QPointF(5, 0));
    EXPECT_FALSE(model(0).mouse());
    EXPECT_FALSE(model(0).hidden());
    platform.workspace().setFullScreen(std::nullopt);
    EXPECT_TRUE(model(0).mouse());
}

TEST_F(FullScreenTest, aRevealedDockThatIsCoveredHidesAfterItsTime) {
    hideAll();
    platform.pointer().moveTo(leftStrip);
    ASSERT_FALSE(model(0).hidden());
    platform.workspace().setFullScreen(leftFrame);
    wait(0.61);
    EXPECT_TRUE(model(0).hidden());
}

TEST_F(FullScreenTest, aWindowOverBothScreensCoversBoth) {
    hideAll();
    platform.workspace().setFullScreen(leftFrame.united(rightFrame));
    platform.pointer().moveTo(leftStrip);
    platform.pointer().moveTo(rightStrip);
    EXPECT_TRUE(model(0).hidden());
    EXPECT_TRUE(model(1).hidden());
}

TEST_F(FullScreenTest, aDockThatIsSwitchedOnUnderAFullScreenWindowIsCovered) {
    configure([](DockConfig& config) { config.enabled = false; });
    platform.workspace().setFullScreen(leftFrame);
    configure([](DockConfig& config) {
        config.enabled = true;
        config.autoHide = true;
    });
    wait(1);
    platform.pointer().moveTo(leftStrip);
    EXPECT_TRUE(model(0).hidden());
}

} // namespace
} // namespace quillary::test
