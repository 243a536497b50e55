#include "tests/desktop/DesktopFixture.h"
#include "tests/x11/TestWindow.h"

namespace quillary::test {

namespace {

const std::vector<std::string> threeItems{"/a", "/b", "/c"};

class InputShapeTest : public DesktopFixture {
protected:
    void startWith(const std::string& options) {
        home.writeSettings(
            settingsJson({dockJson(leftKey, threeItems, options), dockJson(rightKey, threeItems, options)}));
        startWithDocks(2);
    }
    bool takesClicksAt(xcb_window_t dock, const QRegion& region) {
        return eventually([&] { return inputShape(dock) == region; });
    }
};

// Three icons of 50 points that grow to 90: the row is 178 long, 82 from the ends of a panel of 342 × 167.
const std::string growing = R"("iconSize":50,"magnification":"big")";

} // namespace

TEST_F(InputShapeTest, atRestItIsTheRowAndItsTolerance) {
    startWith(growing);
    EXPECT_TRUE(takesClicksAt(leftDock(), QRect(76, 86, 191, 81)));
    EXPECT_TRUE(takesClicksAt(rightDock(), QRect(76, 86, 191, 81)));
}

TEST_F(InputShapeTest, itGrowsWithTheIconsUnderThePointerAndShrinksAgain) {
    startWith(growing);
    ASSERT_TRUE(takesClicksAt(leftDock(), QRect(76, 86, 191, 81)));
    display.movePointer(QPoint(640, 850));
    EXPECT_TRUE(takesClicksAt(leftDock(), QRect(8, 46, 327, 121)));
    EXPECT_EQ(inputShape(rightDock()), QRegion(76, 86, 191, 81)) << "the other screen's stays";
    // One point beyond the grown dock.
    display.movePointer(QPoint(469 + 171, 733 + 45));
    EXPECT_TRUE(takesClicksAt(leftDock(), QRect(76, 86, 191, 81)));
}

TEST_F(InputShapeTest, itLiesAtTheEdgeOfTheDock) {
    startWith(growing + R"(,"edge":"left")");
    EXPECT_TRUE(takesClicksAt(leftDock(), QRect(0, 76, 82, 191)));
    ASSERT_TRUE(program.quit());
    startWith(growing + R"(,"edge":"right")");
    EXPECT_TRUE(takesClicksAt(rightDock(), QRect(250, 76, 81, 191)));
    ASSERT_TRUE(program.quit());
    startWith(growing + R"(,"edge":"top")");
    EXPECT_TRUE(takesClicksAt(rightDock(), QRect(76, 0, 191, 82)));
}

TEST_F(InputShapeTest, aHiddenDockTakesNoClicksUntilThePointerReachesTheEdge) {
    startWith(growing + R"(,"autoHide":true)");
    EXPECT_TRUE(takesClicksAt(leftDock(), QRegion()));
    EXPECT_TRUE(takesClicksAt(rightDock(), QRegion()));

    display.movePointer(QPoint(640, 899));
    EXPECT_TRUE(takesClicksAt(leftDock(), QRect(76, 86, 191, 81)));
    EXPECT_TRUE(inputShape(rightDock()).isEmpty()) << "the other screen's stays hidden";
    display.movePointer(QPoint(640, 870));
    EXPECT_TRUE(takesClicksAt(leftDock(), QRect(8, 46, 327, 121)));

    display.movePointer(QPoint(640, 300));
    EXPECT_TRUE(takesClicksAt(leftDock(), QRegion()));
}

TEST_F(InputShapeTest, clicksBesideTheRowReachTheWindowBelow) {
    // A panel of 206 × 127 at 1737, 673: the row takes clicks from 46 on, above it is the room for labels.
    const std::string options = R"("iconSize":50,"magnification":"off")";
    home.writeSettings(settingsJson(
        {dockJson(leftKey, {}), dockJson(rightKey, {home.install("red", Qt::red), "/b", "/c"}, options)}));
    startWithDocks(2);
    ASSERT_TRUE(takesClicksAt(rightDock(), QRect(8, 46, 191, 81)));
    TestWindow below(display, QRect(1300, 100, 1000, 690));
    below.setClass("below", "below");
    ASSERT_TRUE(below.show());

    display.click(QPoint(1840, 693));
    EXPECT_TRUE(eventually([&] { return below.clicks() == 1; })) << "in the room for labels";
    // The first icon's middle. Its label, which is not quite white, shows that the pointer has arrived:
    // openbox loses a click that comes right after another. The program that it starts shows that the click
    // has arrived.
    display.movePointer(QPoint(1784, 756));
    ASSERT_TRUE(eventually([&] { return colourAt(QPoint(1772, 713)) != QColor(Qt::white); }));
    display.click(QPoint(1784, 756));
    ASSERT_TRUE(eventually([&] { return windowOf("red") != XCB_WINDOW_NONE; }));
    EXPECT_EQ(below.clicks(), 1) << "the dock had that one";
    display.click(QPoint(1735, 773));
    EXPECT_TRUE(eventually([&] { return below.clicks() == 2; })) << "beside the panel";
}

} // namespace quillary::test
