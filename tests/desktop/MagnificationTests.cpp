#include "tests/desktop/DesktopFixture.h"

namespace quillary::test {

namespace {

const QColor red(220, 20, 20);
const QColor green(20, 200, 20);
const QColor yellow(220, 220, 20);
const QColor wallpaper(10, 20, 120);

const QRect leftScreen(0, 0, 1280, 900);
const QRect rightScreen(1280, 0, 1120, 800);

/// Whether no side of the one is more than a pixel from the other's: edges between pixels are blended.
testing::AssertionResult nearly(const QRect& box, const QRect& expected) {
    const QRect grown = expected.adjusted(-1, -1, 1, 1);
    const QRect shrunk = expected.adjusted(1, 1, -1, -1);
    return grown.contains(box) && box.contains(shrunk) ? testing::AssertionSuccess()
                                                       : testing::AssertionFailure()
                                                             << testing::PrintToString(box) << " instead of "
                                                             << testing::PrintToString(expected);
}

/// Icons of plain colours, without a compositor, so that pictures hold those very colours.
class MagnificationTest : public DesktopFixture {
protected:
    void SetUp() override {
        DesktopFixture::SetUp();
        paintWallpaper(wallpaper);
        items = {home.install("red", red), home.install("green", green), home.install("yellow", yellow)};
    }
    void startWith(const std::string& options) {
        home.writeSettings(
            settingsJson({dockJson(leftKey, items, options), dockJson(rightKey, items, options)}));
        startWithDocks(2);
    }
    bool shows(QColor colour, const QRect& box, const QRect& screen = leftScreen) {
        return eventually([&] { return colourBox(colour, screen) == box; });
    }
    /// What encloses everything inside `area` that is not wallpaper.
    QRect inkBox(const QRect& area) {
        const QImage picture = display.screenshot();
        QRect box;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                const QColor colour = picture.pixelColor(x, y);
                if (colour != wallpaper) {
                    box |= QRect(x, y, 1, 1);
                }
            }
        }
        return box;
    }

    std::vector<std::string> items;
};

// Three icons of 50 points that grow to 90, on LEFT in a panel of 342 × 167 at 469, 733.
const std::string growing = R"("iconSize":50,"magnification":"big")";

} // namespace

TEST_F(MagnificationTest, iconsRestAtTheirSize) {
    startWith(growing);
    EXPECT_TRUE(shows(red, QRect(559, 831, 50, 50)));
    EXPECT_TRUE(shows(green, QRect(615, 831, 50, 50)));
    EXPECT_TRUE(shows(yellow, QRect(671, 831, 50, 50)));
    EXPECT_TRUE(shows(green, QRect(1815, 731, 50, 50), rightScreen));
}

TEST_F(MagnificationTest, theIconUnderThePointerGrowsAndTheOthersMakeRoom) {
    startWith(growing);
    ASSERT_TRUE(shows(green, QRect(615, 831, 50, 50)));
    display.movePointer(QPoint(640, 850));
    EXPECT_TRUE(shows(green, QRect(595, 791, 90, 90)))
        << testing::PrintToString(colourBox(green, leftScreen));
    // The neighbours are 56 points away, of 120: 1.594 times 50 points, their centres at 80.1 and 261.9.
    EXPECT_TRUE(nearly(colourBox(red, leftScreen), QRect(510, 802, 79, 79)));
    EXPECT_TRUE(nearly(colourBox(yellow, leftScreen), QRect(691, 802, 79, 79)));
    EXPECT_EQ(colourBox(green, rightScreen), QRect(1815, 731, 50, 50)) << "the other screen's dock rests";

    // Only the grown dock reaches that far into the screen.
    display.movePointer(QPoint(584, 780));
    EXPECT_TRUE(shows(red, QRect(522, 791, 90, 90))) << testing::PrintToString(colourBox(red, leftScreen));

    display.movePointer(QPoint(640, 300));
    EXPECT_TRUE(shows(green, QRect(615, 831, 50, 50)));
    EXPECT_TRUE(shows(red, QRect(559, 831, 50, 50)));
    EXPECT_TRUE(shows(yellow, QRect(671, 831, 50, 50)));
}

TEST_F(MagnificationTest, atTheSideIconsGrowAwayFromTheEdge) {
    startWith(growing + R"(,"edge":"left")");
    ASSERT_TRUE(shows(green, QRect(19, 425, 50, 50)));
    display.movePointer(QPoint(40, 450));
    EXPECT_TRUE(shows(green, QRect(19, 405, 90, 90)));
}

TEST_F(MagnificationTest, switchedOffNothingGrows) {
    startWith(R"("iconSize":50,"magnification":"off")");
    ASSERT_TRUE(shows(green, QRect(615, 831, 50, 50)));
    display.movePointer(QPoint(640, 850));
    const QRect labelRoom(560, 774, 160, 35);
    ASSERT_TRUE(eventually([&] { return !inkBox(labelRoom).isEmpty(); })) << "the dock has the pointer";
    EXPECT_TRUE(shows(green, QRect(615, 831, 50, 50)));
}

TEST_F(MagnificationTest, theLabelStandsAboveTheIconUnderThePointer) {
    startWith(growing);
    ASSERT_TRUE(shows(green, QRect(615, 831, 50, 50)));
    const QRect labelRoom(469, 733, 342, 54);
    ASSERT_TRUE(inkBox(labelRoom).isEmpty());
    display.movePointer(QPoint(640, 850));
    ASSERT_TRUE(shows(green, QRect(595, 791, 90, 90)));
    const QRect label = inkBox(labelRoom);
    EXPECT_NEAR(label.height(), 23, 2);
    EXPECT_NEAR(label.center().x(), 640, 1);
    EXPECT_NEAR(label.center().y(), 773, 1);
    EXPECT_GT(label.width(), 30);

    display.movePointer(QPoint(640, 300));
    EXPECT_TRUE(eventually([&] { return inkBox(labelRoom).isEmpty(); }));
}

} // namespace quillary::test
