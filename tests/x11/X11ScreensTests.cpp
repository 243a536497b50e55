#include "platform/x11/X11Monitor.h"
#include "tests/x11/X11Fixture.h"

#include <QScreen>
#include <QWidget>

#include <xcb/randr.h>

#include <numeric>

namespace quillary {

using test::TestWindow;
using test::VirtualDisplay;

namespace {

class X11ScreensTest : public test::X11Fixture {
protected:
    void startCounting() {
        startApplication();
        QObject::connect(screens.get(), &Screens::changed, screens.get(), [this] { ++changes; });
    }
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> result;
        for (const auto& screen : screens->list()) {
            result.push_back(screen.name);
        }
        return result;
    }
    [[nodiscard]] QRectF visible(std::size_t index) const {
        const auto list = screens->list();
        return index < list.size() ? list[index].visibleFrame : QRectF();
    }

    int changes = 0;
};

using Names = std::vector<std::string>;

std::vector<std::uint8_t> edidBlock(std::uint8_t serial) {
    std::vector<std::uint8_t> block(128, 0);
    const std::uint8_t head[] = {0x00, 0xFF, 0xFF, 0xFF, 0xFF,   0xFF, 0xFF, 0x00,
                                 0x10, 0xAC, 1,    0,    serial, 0,    0,    0};
    std::copy(std::begin(head), std::end(head), block.begin());
    const std::string name = "Test Panel\n";
    block[54 + 3] = 0xFC;
    std::copy(name.begin(), name.end(), block.begin() + 54 + 5);
    block[127] =
        static_cast<std::uint8_t>(0x100U - (std::accumulate(block.begin(), block.end(), 0U) & 0xFFU));
    return block;
}

} // namespace

TEST_F(X11ScreensTest, listsMonitorsWithFrames) {
    startApplication();
    const auto list = screens->list();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].name, "LEFT");
    EXPECT_EQ(list[0].frame, QRectF(0, 0, 1280, 900));
    EXPECT_EQ(list[0].visibleFrame, QRectF(0, 0, 1280, 900));
    EXPECT_EQ(list[0].scale, 1.0);
    EXPECT_EQ(list[0].uuid, std::nullopt);
    EXPECT_EQ(list[0].displayNumber, 0x103C2070U);
    EXPECT_EQ(list[1].name, "RIGHT");
    EXPECT_EQ(list[1].frame, QRectF(1280, 0, 1120, 800));
}

TEST_F(X11ScreensTest, thePrimaryStandsFirst) {
    display.unplugMonitor("LEFT");
    display.plugMonitor("LEFT", QRect(0, 0, 1280, 900));
    display.plugMonitor("RIGHT", QRect(1280, 0, 1120, 800), VirtualDisplay::Rank::primary);
    startApplication();
    EXPECT_EQ(names(), (Names{"RIGHT", "LEFT"}));
}

TEST_F(X11ScreensTest, unplugPlugResizeAndRenameAreTold) {
    startCounting();
    display.unplugMonitor("RIGHT");
    EXPECT_TRUE(eventually([&] { return names() == Names{"LEFT"}; }));
    EXPECT_GE(changes, 1);

    changes = 0;
    display.plugMonitor("RIGHT", QRect(1280, 0, 1000, 700));
    EXPECT_TRUE(eventually([&] { return names() == Names{"LEFT", "RIGHT"}; }));
    EXPECT_EQ(screens->list().back().frame, QRectF(1280, 0, 1000, 700));
    EXPECT_GE(changes, 1);

    changes = 0;
    display.plugMonitor("RIGHT", QRect(1280, 0, 640, 480));
    EXPECT_TRUE(eventually([&] { return screens->list().back().frame == QRectF(1280, 0, 640, 480); }));
    EXPECT_GE(changes, 1);

    changes = 0;
    display.unplugMonitor("RIGHT");
    display.plugMonitor("OTHER", QRect(1280, 0, 640, 480));
    EXPECT_TRUE(eventually([&] { return names() == Names{"LEFT", "OTHER"}; }));
    EXPECT_GE(changes, 1);
}

TEST_F(X11ScreensTest, framesAgreeWithQtsScreensAtAnyScale) {
    setenv("QT_SCALE_FACTOR", "1.5", 1);
    startApplication();
    unsetenv("QT_SCALE_FACTOR");
    const auto list = screens->list();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].scale, 1.5);
    EXPECT_EQ(list[0].frame, QRectF(0, 0, 853, 600));
    EXPECT_EQ(list[1].frame, QRectF(1280, 0, 747, 533));
    for (const auto* screen : QGuiApplication::screens()) {
        const auto match = std::find_if(list.begin(), list.end(), [&](const ScreenInfo& info) {
            return QString::fromStdString(info.name) == screen->name();
        });
        ASSERT_NE(match, list.end());
        EXPECT_EQ(match->frame, QRectF(screen->geometry()));
    }
}

TEST_F(X11ScreensTest, aMirrorIsLeftOut) {
    display.plugMonitor("MIRROR", QRect(0, 0, 1280, 900));
    startApplication();
    EXPECT_EQ(names(), (Names{"LEFT", "RIGHT"}));
}

TEST_F(X11ScreensTest, theEdidGivesNameAndIdentity) {
    startCounting();
    const auto resources =
        connection->reply(xcb_randr_get_screen_resources_current_reply,
                          xcb_randr_get_screen_resources_current(connection->xcb(), display.root()));
    ASSERT_NE(resources, nullptr);
    ASSERT_GT(resources->num_outputs, 0);
    const auto output = xcb_randr_get_screen_resources_current_outputs(resources.get())[0];
    const auto block = edidBlock(5);
    xcb_randr_change_output_property(display.xcb(), output, display.atom("EDID"), XCB_ATOM_INTEGER, 8,
                                     XCB_PROP_MODE_REPLACE, 128, block.data());
    xcb_flush(display.xcb());
    EXPECT_TRUE(eventually([&] { return names() == Names{"Test Panel", "RIGHT"}; }));
    const auto list = screens->list();
    ASSERT_TRUE(list[0].uuid);
    EXPECT_EQ(list[0].uuid->size(), 36U);
    EXPECT_EQ(list[0].displayNumber, 0x103C2070U);
    EXPECT_EQ(changes, 1);
}

TEST_F(X11ScreensTest, strutsCutTheVisibleFrameOfTheirOwnScreen) {
    ASSERT_TRUE(display.startWindowManager());
    startCounting();
    TestWindow panel(display, QRect(1280, 0, 1120, 30));
    panel.setAtoms("_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
    panel.setNumbers("_NET_WM_STRUT_PARTIAL", "CARDINAL", {0, 0, 30, 0, 0, 0, 0, 0, 1280, 2399, 0, 0});
    ASSERT_TRUE(panel.show());
    EXPECT_TRUE(eventually([&] { return visible(1) == QRectF(1280, 30, 1120, 770); }));
    EXPECT_EQ(visible(0), QRectF(0, 0, 1280, 900));
    EXPECT_EQ(changes, 1);

    panel.setNumbers("_NET_WM_STRUT_PARTIAL", "CARDINAL", {0, 0, 44, 0, 0, 0, 0, 0, 1280, 2399, 0, 0});
    EXPECT_TRUE(eventually([&] { return visible(1) == QRectF(1280, 44, 1120, 756); }));
    EXPECT_EQ(changes, 2);

    panel.destroy();
    EXPECT_TRUE(eventually([&] { return visible(1) == QRectF(1280, 0, 1120, 800); }));
    EXPECT_EQ(changes, 3);
}

TEST_F(X11ScreensTest, ourOwnStrutsAndUnrelatedChangesAreNotTold) {
    ASSERT_TRUE(display.startWindowManager());
    startCounting();
    QWidget own;
    const auto id = static_cast<xcb_window_t>(own.winId());
    settle();
    const std::uint32_t strut[] = {0, 0, 50, 0};
    xcb_change_property(display.xcb(), XCB_PROP_MODE_REPLACE, id, display.atom("_NET_WM_STRUT"),
                        XCB_ATOM_CARDINAL, 32, 4, strut);
    xcb_flush(display.xcb());
    own.show();
    TestWindow other(display, QRect(100, 100, 200, 100));
    ASSERT_TRUE(other.show());
    ASSERT_TRUE(eventually([&] { return clients->windows().size() == 2; }));
    other.setText("WM_NAME", "another title");
    settle();
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(visible(0), QRectF(0, 0, 1280, 900));
}

TEST_F(X11ScreensTest, whenTheWindowManagerGoesItsStrutsGoAfterAGrace) {
    ASSERT_TRUE(display.startWindowManager());
    startCounting();
    TestWindow panel(display, QRect(0, 0, 1280, 30));
    panel.setAtoms("_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
    panel.setNumbers("_NET_WM_STRUT", "CARDINAL", {0, 0, 30, 0});
    ASSERT_TRUE(panel.show());
    ASSERT_TRUE(eventually([&] { return visible(0) == QRectF(0, 30, 1280, 870); }));
    display.stopWindowManager();
    EXPECT_TRUE(eventually([&] { return !clients->managed(); }));
    EXPECT_EQ(visible(0), QRectF(0, 30, 1280, 870));
    EXPECT_TRUE(eventually([&] { return visible(0) == QRectF(0, 0, 1280, 900); }));
}

} // namespace quillary
