#include "tests/app/DockViewFixture.h"

#include <QCoreApplication>
#include <QMouseEvent>

namespace quillary::test {
namespace {

class DockPressTest : public DockViewTest {
protected:
    void press(QPointF from, QPointF to) const {
        QMouseEvent down(QEvent::MouseButtonPress, from, from, Qt::LeftButton, Qt::LeftButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(view.get(), &down);
        QMouseEvent up(QEvent::MouseButtonRelease, to, to, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view.get(), &up);
    }
};

TEST_F(DockPressTest, aClickOpensTheItemUnderThePointer) {
    const DockGeometry geometry = model().geometry(model().cells());
    const QPointF second = geometry.point(geometry.rowOffset() + geometry.restCenters[1], 40);
    model().setMouse(second);
    press(second, second + QPointF(3, 2));
    EXPECT_EQ(platform.workspace().calls, std::vector<std::string>{"openApplication " + notes});
}

TEST_F(DockPressTest, aClickCountsWhereItWasMadeWhereverThePointerIsByNow) {
    const DockGeometry geometry = model().geometry(model().cells());
    model().setMouse(std::nullopt);
    wait(1);
    const QPointF second = geometry.point(geometry.rowOffset() + geometry.restCenters[1], 40);
    press(second, second);
    EXPECT_EQ(platform.workspace().calls, std::vector<std::string>{"openApplication " + notes});
}

TEST_F(DockPressTest, aClickUpTo3PointsBesideAnIconOpensIt) {
    const DockGeometry geometry = model().geometry(model().cells());
    const double side = geometry.rowOffset() + geometry.restCenters[0] - 24;
    press(geometry.point(side - 3.1, 40), geometry.point(side - 3.1, 40));
    EXPECT_TRUE(platform.workspace().calls.empty());
    press(geometry.point(side - 2.9, 40), geometry.point(side - 2.9, 40));
    EXPECT_EQ(platform.workspace().calls, std::vector<std::string>{"openApplication " + mail});
}

TEST_F(DockPressTest, aClickAtTheVeryEdgeHitsTheIconAbove) {
    const DockGeometry geometry = model().geometry(model().cells());
    press(geometry.point(geometry.rowOffset() + geometry.restCenters[0], 0.5),
          geometry.point(geometry.rowOffset() + geometry.restCenters[0], 0.5));
    EXPECT_EQ(platform.workspace().calls, std::vector<std::string>{"openApplication " + mail});
}

TEST_F(DockPressTest, aPressThatMovesMoreThan4PointsIsNoClick) {
    const DockGeometry geometry = model().geometry(model().cells());
    const QPointF second = geometry.point(geometry.rowOffset() + geometry.restCenters[1], 40);
    model().setMouse(second);
    press(second, second + QPointF(4.1, 0));
    EXPECT_TRUE(platform.workspace().calls.empty());
}

TEST_F(DockPressTest, aPressedIconShrinksAndDarkensOver100Milliseconds) {
    configure([](DockConfig& config) { config.bounceOnLaunch = false; });
    wait(1);
    const auto send = [this](QEvent::Type type, Qt::MouseButtons buttons) {
        QMouseEvent event(type, onFirst, onFirst, Qt::LeftButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(view.get(), &event);
    };
    const auto pressed = [this] { return view->scene().icons.at(0).pressed; };
    send(QEvent::MouseButtonPress, Qt::LeftButton);
    EXPECT_EQ(pressed(), 0);
    wait(0.05);
    // Ease-out is at 7/8 half-way, seen in the last frame before.
    EXPECT_GT(pressed(), 0.6);
    EXPECT_LT(pressed(), 1);
    wait(0.1);
    EXPECT_EQ(pressed(), 1);
    EXPECT_EQ(view->scene().icons.at(1).pressed, 0);
    EXPECT_FALSE(view->animating());
    send(QEvent::MouseButtonRelease, Qt::NoButton);
    wait(0.15);
    EXPECT_EQ(pressed(), 0);
    EXPECT_FALSE(view->animating());
}

TEST_F(DockPressTest, ofTwoIconsOfAPathOnlyThePressedOneIsPressed) {
    configure([](DockConfig& config) { config.items = {mail, notes, mail}; });
    wait(1);
    const QPointF second = view->scene().icons.at(2).rect.center();
    QMouseEvent down(QEvent::MouseButtonPress, second, second, Qt::LeftButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(view.get(), &down);
    wait(0.15);
    EXPECT_EQ(view->scene().icons.at(0).pressed, 0);
    EXPECT_EQ(view->scene().icons.at(2).pressed, 1);
    // A press on the other one begins from its resting size.
    const QPointF first = view->scene().icons.at(0).rect.center();
    QMouseEvent again(QEvent::MouseButtonPress, first, first, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view.get(), &again);
    EXPECT_EQ(view->scene().icons.at(0).pressed, 0);
    EXPECT_EQ(view->scene().icons.at(2).pressed, 0);
}

} // namespace
} // namespace quillary::test
