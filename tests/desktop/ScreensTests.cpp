#include "tests/desktop/DesktopFixture.h"
#include "tests/x11/TestWindow.h"

#include <QJsonArray>

namespace quillary::test {

namespace {

const std::string third = "345512734";

/// On LEFT two icons of 48 points that don't grow (146 × 125), on RIGHT three (200 × 125).
class ScreensTest : public DesktopFixture {
protected:
    void SetUp() override {
        DesktopFixture::SetUp();
        const std::string options = R"("magnification":"off")";
        home.writeSettings(settingsJson(
            {dockJson(leftKey, {"/a", "/b"}, options), dockJson(rightKey, {"/c", "/d", "/e"}, options)}));
        startWithDocks(2);
    }
    /// In KiB, once it changes no more: docks that have just come still slide in and load their icons.
    long memoryAtRest() {
        long last = -1;
        EXPECT_TRUE(eventually([&] {
            const long now = program.anonymousMemory();
            const bool rests = now == last;
            last = now;
            if (!rests) {
                VirtualDisplay::runFor(500);
            }
            return rests;
        }));
        return last;
    }
    const QRect left{567, 775, 146, 125};
    const QRect right{1740, 675, 200, 125};
};

/// A panel of another program that reserves room at an edge of the desktop.
class OtherPanel : public TestWindow {
public:
    OtherPanel(const VirtualDisplay& host, const QRect& place, const std::vector<std::uint32_t>& strut)
        : TestWindow(host, place) {
        setAtoms("_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
        reserve(strut);
    }
    /// Left, right, top, bottom; then for each of them where along the edge it begins and ends.
    void reserve(const std::vector<std::uint32_t>& strut) {
        setNumbers("_NET_WM_STRUT_PARTIAL", "CARDINAL", strut);
    }
};

} // namespace

TEST_F(ScreensTest, anUnpluggedScreenTakesItsDockAwayAndBringsItBackWithItsItems) {
    ASSERT_TRUE(standAt({left, right}));
    display.unplugMonitor("RIGHT");
    EXPECT_TRUE(standAt({left}));
    const QJsonArray items{QStringLiteral("/c"), QStringLiteral("/d"), QStringLiteral("/e")};
    EXPECT_EQ(home.dockSettings(rightKey).value(QStringLiteral("items")).toArray(), items);

    display.plugMonitor("RIGHT", QRect(1280, 0, 1120, 800));
    EXPECT_TRUE(standAt({left, right}));
    EXPECT_EQ(home.dockSettings(rightKey).value(QStringLiteral("items")).toArray(), items);
}

TEST_F(ScreensTest, aNewScreenGetsADockAndASettingsEntry) {
    display.unplugMonitor("RIGHT");
    ASSERT_TRUE(standAt({left}));
    display.plugMonitor("THIRD", QRect(1280, 0, 1120, 800));
    EXPECT_TRUE(eventually([&] { return docks().size() == 2; }));
    EXPECT_EQ(home.dockSettings(third).value(QStringLiteral("screenName")).toString(),
              QStringLiteral("THIRD"));
    EXPECT_EQ(home.settings().value(QStringLiteral("docks")).toArray().size(), 3) << "the absent one's stays";
}

TEST_F(ScreensTest, aScreenThatMovesOrChangesItsSizeKeepsItsDockAtItsEdge) {
    ASSERT_TRUE(standAt({left, right}));
    display.plugMonitor("RIGHT", QRect(1280, 50, 1000, 700));
    EXPECT_TRUE(standAt({left, QRect(1680, 625, 200, 125)}));
    display.plugMonitor("RIGHT", QRect(1380, 100, 1000, 700));
    EXPECT_TRUE(standAt({left, QRect(1780, 675, 200, 125)}));
    display.plugMonitor("LEFT", QRect(0, 0, 1000, 850), VirtualDisplay::Rank::primary);
    EXPECT_TRUE(standAt({QRect(427, 725, 146, 125), QRect(1780, 675, 200, 125)}));
}

TEST_F(ScreensTest, withoutAnyDockTheProgramWaitsForOne) {
    ASSERT_TRUE(program.quit());
    home.writeSettings(settingsJson(
        {dockJson(leftKey, {}, R"("enabled":false)"), dockJson(rightKey, {"/c"}, R"("enabled":true)")}));
    startWithDocks(1);
    display.unplugMonitor("RIGHT");
    ASSERT_TRUE(standAt({}));
    EXPECT_TRUE(program.isRunning());
    display.plugMonitor("RIGHT", QRect(1280, 0, 1120, 800));
    EXPECT_TRUE(eventually([&] { return rightDock() != XCB_WINDOW_NONE; }));
}

TEST_F(ScreensTest, aPanelOfAnotherProgramMovesTheDockOfItsScreenOnly) {
    ASSERT_TRUE(standAt({left, right}));
    OtherPanel bottom(display, QRect(0, 860, 1280, 40), {0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 0, 1279});
    ASSERT_TRUE(bottom.show());
    EXPECT_TRUE(standAt({left.translated(0, -40), right}));

    // RIGHT ends 100 above the desktop's end.
    OtherPanel below(display, QRect(1280, 770, 1120, 30), {0, 0, 0, 130, 0, 0, 0, 0, 0, 0, 1280, 2399});
    ASSERT_TRUE(below.show());
    EXPECT_TRUE(standAt({left.translated(0, -40), right.translated(0, -30)}));
    below.reserve({0, 0, 0, 150, 0, 0, 0, 0, 0, 0, 1280, 2399});
    EXPECT_TRUE(standAt({left.translated(0, -40), right.translated(0, -50)}));
    below.destroy();
    EXPECT_TRUE(standAt({left.translated(0, -40), right}));

    // At the side it narrows the screen: the middle of what is left lies 30 further to the left.
    OtherPanel side(display, QRect(2340, 0, 60, 800), {0, 60, 0, 0, 0, 0, 0, 799, 0, 0, 0, 0});
    ASSERT_TRUE(side.show());
    EXPECT_TRUE(standAt({left.translated(0, -40), right.translated(-30, 0)}));
    bottom.unmap();
    side.unmap();
    EXPECT_TRUE(standAt({left, right}));
}

TEST_F(ScreensTest, pluggingAndUnpluggingForHoursLeavesNothingBehind) {
    constexpr int warmUp = 40;
    constexpr int cycles = 200;
#ifdef __SANITIZE_ADDRESS__
    // The sanitizer keeps records of its own, some 5 MiB here.
    constexpr long allowedKiB = 16384;
#else
    constexpr long allowedKiB = 1024;
#endif
    ASSERT_TRUE(standAt({left, right}));
    std::size_t windows = 0;
    std::size_t descriptors = 0;
    long memory = 0;
    for (int i = 0; i < warmUp + cycles; ++i) {
        if (i == warmUp) {
            windows = windowCount();
            descriptors = program.descriptors();
            memory = memoryAtRest();
        }
        display.unplugMonitor("RIGHT");
        ASSERT_TRUE(eventually([&] { return docks().size() == 1; })) << i;
        display.plugMonitor("RIGHT", QRect(1280, 0, 1120, 800));
        ASSERT_TRUE(eventually([&] { return docks().size() == 2; })) << i;
    }
    EXPECT_TRUE(standAt({left, right}));
    EXPECT_TRUE(eventually([&] { return windowCount() <= windows; })) << windowCount() << " > " << windows;
    EXPECT_TRUE(eventually([&] { return program.descriptors() <= descriptors; }))
        << program.descriptors() << " > " << descriptors;
    const long grown = memoryAtRest() - memory;
    RecordProperty("grownByKiB", std::to_string(grown));
    EXPECT_LE(grown, allowedKiB);
}

} // namespace quillary::test
