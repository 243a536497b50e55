#include "tests/desktop/DesktopFixture.h"
#include "tests/x11/TestWindow.h"

#include <algorithm>
#include <cstdlib>

namespace quillary::test {

namespace {

const QColor icon(220, 20, 20);

/// Two icons of 48 points that don't grow, on each screen: 146 × 125.
class SurroundingsTest : public DesktopFixture {
protected:
    void SetUp() override {
        DesktopFixture::SetUp();
        const std::vector<std::string> items{home.install("red", icon), "/b"};
        const std::string options = R"("magnification":"off")";
        home.writeSettings(
            settingsJson({dockJson(leftKey, items, options), dockJson(rightKey, items, options)}));
        startWithDocks(2);
    }
    bool standsAbove(xcb_window_t dock) {
        const auto states = display.atomNames(dock, "_NET_WM_STATE");
        return std::ranges::find(states, "_NET_WM_STATE_ABOVE") != states.end();
    }
    /// Whether the dock shows what is behind it: its tint follows the wallpaper's.
    bool isTranslucent() {
        paintWallpaper(Qt::red);
        const bool reddish = VirtualDisplay::waitUntil([&] { return tint() > 30; }, patience);
        paintWallpaper(Qt::blue);
        return reddish && VirtualDisplay::waitUntil([&] { return tint() < -30; }, patience);
    }
    /// Whether it hides what is behind it, and shows it where the dock is not.
    bool isShapedAndOpaque() {
        for (const QColor colour : {QColor(Qt::red), QColor(Qt::blue)}) {
            paintWallpaper(colour);
            if (!VirtualDisplay::waitUntil(
                    [&] { return std::abs(tint()) < 30 && colourAt(labelRoom) == colour; }, patience)) {
                return false;
            }
        }
        return true;
    }
    int tint() const { return colourAt(background).red() - colourAt(background).blue(); }

    static constexpr int patience = VirtualDisplay::deadline;
    const std::vector<QRect> atTheirPlaces{QRect(567, 775, 146, 125), QRect(1767, 675, 146, 125)};
    /// Before the first icon, and above the row.
    const QPoint background{585, 860};
    const QPoint labelRoom{640, 785};
};

} // namespace

TEST_F(SurroundingsTest, docksSurviveTheWindowManager) {
    ASSERT_TRUE(standAt(atTheirPlaces));
    display.stopWindowManager();
    EXPECT_TRUE(standAt(atTheirPlaces));

    ASSERT_TRUE(display.startWindowManager());
    EXPECT_TRUE(standAt(atTheirPlaces));
    for (const auto dock : docks()) {
        EXPECT_TRUE(eventually([&] { return standsAbove(dock); }));
    }
    TestWindow large(display, QRect(0, 50, 1280, 850));
    ASSERT_TRUE(large.show());
    ASSERT_TRUE(eventually([&] { return colourAt(QPoint(300, 600)) == QColor(Qt::white); }));
    EXPECT_TRUE(eventually([&] { return colourBox(icon, atTheirPlaces[0]) == QRect(589, 833, 48, 48); }))
        << "the dock is above the window";
    EXPECT_NE(display.focusedWindow(), leftDock());
}

TEST_F(SurroundingsTest, docksAreShapedAndOpaqueWhileThereIsNoCompositor) {
    ASSERT_TRUE(standAt(atTheirPlaces));
    EXPECT_TRUE(isShapedAndOpaque());
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(display.startCompositor());
        EXPECT_TRUE(isTranslucent()) << i;
        EXPECT_TRUE(eventually([&] { return colourAt(labelRoom) == QColor(Qt::blue); })) << i;
        display.stopCompositor();
        EXPECT_TRUE(isShapedAndOpaque()) << i;
    }
    EXPECT_TRUE(standAt(atTheirPlaces));
}

} // namespace quillary::test
