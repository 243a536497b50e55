#include "tests/desktop/DesktopFixture.h"

#include <cstdlib>

namespace quillary::test {

namespace {

const QColor red(220, 20, 20);
const QColor green(20, 200, 20);
const QColor yellow(220, 220, 20);

const QRect leftScreen(0, 0, 1280, 900);

/// Two pinned icons of 48 points that don't grow: on LEFT a panel of 146 × 125 at 567, 775, the icons'
/// middles at 613 and 667, their dots at 890.
class LaunchTest : public DesktopFixture {
protected:
    void SetUp() override {
        DesktopFixture::SetUp();
        const std::vector<std::string> items{home.install("red", red), home.install("green", green)};
        home.install("yellow", yellow);
        const std::string options = R"("magnification":"off")";
        home.writeSettings(
            settingsJson({dockJson(leftKey, items, options), dockJson(rightKey, items, options)}));
        startWithDocks(2);
        ASSERT_TRUE(eventually([&] { return colourBox(red, leftScreen) == QRect(589, 833, 48, 48); }));
    }
    pid_t startApplication(const std::string& id, int x) {
        const auto process =
            display.start({QUILLARY_TEST_APPLICATION, id, std::to_string(x), "100", "300", "200"});
        EXPECT_TRUE(eventually([&] { return windowOf(id) != XCB_WINDOW_NONE; }));
        return process;
    }
    /// Whether something stands out there from what is a few pixels beside it.
    bool standsOut(QPoint place) {
        const int there = colourAt(place).lightness();
        return std::abs(there - colourAt(place + QPoint(6, 0)).lightness()) > 10;
    }
};

} // namespace

TEST_F(LaunchTest, aClickStartsTheApplicationAndItsDotAppearsOnEveryScreen) {
    EXPECT_FALSE(standsOut(QPoint(613, 890)));
    display.click(QPoint(613, 857));
    ASSERT_TRUE(eventually([&] { return windowOf("red") != XCB_WINDOW_NONE; })) << program.log();
    EXPECT_TRUE(eventually([&] { return standsOut(QPoint(613, 890)); }));
    EXPECT_TRUE(eventually([&] { return standsOut(QPoint(1813, 790)); })) << "on the other screen";
    EXPECT_FALSE(standsOut(QPoint(667, 890))) << "the other application's";
    EXPECT_EQ(windowOf("green"), xcb_window_t{XCB_WINDOW_NONE});

    xcb_kill_client(display.xcb(), windowOf("red"));
    xcb_flush(display.xcb());
    EXPECT_TRUE(eventually([&] { return !standsOut(QPoint(613, 890)); }));
}

TEST_F(LaunchTest, aRunningApplicationStandsBehindTheSeparatorWhileItRuns) {
    EXPECT_TRUE(standAt({QRect(567, 775, 146, 125), QRect(1767, 675, 146, 125)}));
    const auto process = startApplication("yellow", 100);
    // Longer by a separator of 13, an icon of 48 and two gaps of 6: 219.
    EXPECT_TRUE(standAt({QRect(531, 775, 219, 125), QRect(1731, 675, 219, 125)}));
    EXPECT_TRUE(eventually([&] { return colourBox(yellow, leftScreen) == QRect(680, 833, 48, 48); }))
        << testing::PrintToString(colourBox(yellow, leftScreen));
    EXPECT_TRUE(eventually([&] { return standsOut(QPoint(667, 857)); })) << "the separator";

    display.stop(process);
    EXPECT_TRUE(standAt({QRect(567, 775, 146, 125), QRect(1767, 675, 146, 125)}));
    EXPECT_TRUE(eventually([&] { return colourBox(yellow).isNull(); }));
}

TEST_F(LaunchTest, aClickOnARunningApplicationBringsItsWindowUp) {
    startApplication("red", 100);
    startApplication("green", 200);
    const auto redWindow = windowOf("red");
    const auto greenWindow = windowOf("green");
    ASSERT_TRUE(eventually([&] { return isOnTop(greenWindow) && standsOut(QPoint(613, 890)); }));

    display.click(QPoint(613, 857));
    EXPECT_TRUE(eventually([&] { return isOnTop(redWindow) && isActive(redWindow); }));
    display.click(QPoint(1867, 757));
    EXPECT_TRUE(eventually([&] { return isOnTop(greenWindow) && isActive(greenWindow); }))
        << "by the other screen's dock";
    EXPECT_EQ(windowOf("red"), redWindow) << "no second one was started";
}

} // namespace quillary::test
