#include "tests/x11/PanelFixture.h"

#include <QWindow>

#include <algorithm>
#include <array>

namespace quillary {

using test::TestWindow;
using test::VirtualDisplay;

namespace {

using Names = std::vector<std::string>;

// ICCCM 4.1.3.1
constexpr std::uint32_t withdrawnState = 0;

bool holds(const Names& names, const std::string& name) {
    return std::ranges::find(names, name) != names.end();
}

class X11PanelWindowTest : public test::PanelFixture {
protected:
    /// Waits until the window manager lists the panel as what it asked to be: above all, in no list of
    /// windows, on all desktops.
    [[nodiscard]] testing::AssertionResult standsAsADock() {
        // openbox knows no sticky state; it keeps the desktop instead.
        const auto stands = [this] {
            const auto states = display.atomNames(id(), "_NET_WM_STATE");
            return holds(states, "_NET_WM_STATE_ABOVE") && holds(states, "_NET_WM_STATE_SKIP_TASKBAR") &&
                   holds(states, "_NET_WM_STATE_SKIP_PAGER") &&
                   display.numbers(id(), "_NET_WM_DESKTOP") == std::vector<std::uint32_t>{0xFFFFFFFF};
        };
        if (eventually(stands)) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure()
               << testing::PrintToString(display.atomNames(id(), "_NET_WM_STATE")) << " on desktop "
               << testing::PrintToString(display.numbers(id(), "_NET_WM_DESKTOP"));
    }
};

} // namespace

TEST_F(X11PanelWindowTest, standsToThePixelAtFourEdgesOfTwoMonitors) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    const QRect frames[] = {
        {340, 780, 600, 120},  {0, 150, 120, 600},    {1160, 150, 120, 600}, {340, 0, 600, 120},
        {1540, 680, 600, 120}, {1280, 100, 120, 600}, {2280, 100, 120, 600}, {1540, 0, 600, 120},
    };
    present(frames[0]);
    for (const auto& frame : frames) {
        panel->setFrame(frame);
        EXPECT_TRUE(eventually([&] {
            return place() == frame && panel->frame() == frame && widget->geometry() == frame;
        })) << frame.x()
            << "," << frame.y() << " but is at " << place().x() << "," << place().y() << " "
            << place().width() << "×" << place().height();
        settle();
        EXPECT_EQ(place(), frame) << "and stays there";
    }
}

TEST_F(X11PanelWindowTest, aFrameSetBeforeTheFirstShowHolds) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    const QRect frame(1511, 653, 577, 147);
    panel->setFrame(frame);
    EXPECT_FALSE(panel->isVisible());
    panel->orderFront();
    ASSERT_TRUE(eventually([&] { return display.isViewable(id()); }));
    EXPECT_TRUE(panel->isVisible());
    EXPECT_TRUE(eventually([&] { return place() == frame; }));
    settle();
    EXPECT_EQ(place(), frame) << "and stays there";
}

TEST_F(X11PanelWindowTest, mayStandPartlyOutsideTheScreen) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    present(QRect(-200, 850, 900, 200));
    EXPECT_TRUE(eventually([&] { return place() == QRect(-200, 850, 900, 200); }));
    settle();
    EXPECT_EQ(place(), QRect(-200, 850, 900, 200)) << "and stays there";
    panel->setFrame(QRect(2300, -60, 300, 100));
    EXPECT_TRUE(eventually([&] { return place() == QRect(2300, -60, 300, 100); }));
}

TEST_F(X11PanelWindowTest, framesFollowQtsScale) {
    setenv("QT_SCALE_FACTOR", "2", 1);
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    unsetenv("QT_SCALE_FACTOR");
    present(QRect(10, 20, 300, 60));
    EXPECT_TRUE(eventually([&] { return place() == QRect(20, 40, 600, 120); }));
    // The second monitor's origin is in pixels, what lies inside in points.
    panel->setFrame(QRect(1290, 20, 300, 60));
    EXPECT_TRUE(eventually([&] { return place() == QRect(1300, 40, 600, 120); }));
    panel->setInputRegion(QRect(5, 5, 100, 10));
    EXPECT_TRUE(eventually([&] { return shape(XCB_SHAPE_SK_INPUT) == QRegion(10, 10, 200, 20); }));
}

TEST_F(X11PanelWindowTest, isADockAboveOnAllDesktops) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    EXPECT_EQ(display.atomNames(id(), "_NET_WM_WINDOW_TYPE"), (Names{"_NET_WM_WINDOW_TYPE_DOCK"}));
    EXPECT_EQ(display.atomNames(id(), "_NET_WM_STATE"),
              (Names{"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_STICKY", "_NET_WM_STATE_SKIP_TASKBAR",
                     "_NET_WM_STATE_SKIP_PAGER"}));
    present(QRect(340, 780, 600, 120));
    EXPECT_TRUE(standsAsADock());
    settle();
    EXPECT_EQ(display.atomNames(id(), "_NET_WM_WINDOW_TYPE"), (Names{"_NET_WM_WINDOW_TYPE_DOCK"}));
    EXPECT_TRUE(display.numbers(id(), "_NET_WM_STRUT").empty());
    EXPECT_TRUE(display.numbers(id(), "_NET_WM_STRUT_PARTIAL").empty());
}

TEST_F(X11PanelWindowTest, keepsItsPlaceAndStandingWhenHiddenAndShown) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    present(QRect(1540, 680, 600, 120));
    widget->hide();
    // The window manager withdraws it later, and with it all that its properties said.
    ASSERT_TRUE(eventually([&] {
        const auto state = display.numbers(id(), "WM_STATE");
        return state.empty() || state.front() == withdrawnState;
    }));
    ASSERT_TRUE(eventually([&] { return !display.isViewable(id()); }));
    panel->orderFront();
    ASSERT_TRUE(eventually([&] { return display.isViewable(id()); }));
    EXPECT_TRUE(eventually([&] { return place() == QRect(1540, 680, 600, 120); }));
    EXPECT_TRUE(standsAsADock());
    settle();
    EXPECT_EQ(place(), QRect(1540, 680, 600, 120)) << "and stays there";
}

TEST_F(X11PanelWindowTest, takesNoFocusWhenShownNorWhenClicked) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    TestWindow other(display, QRect(300, 100, 400, 300));
    ASSERT_TRUE(other.show());
    display.click(QPoint(400, 200));
    const auto active = [&] { return display.numbers(display.root(), "_NET_ACTIVE_WINDOW"); };
    ASSERT_TRUE(eventually([&] { return active() == std::vector<std::uint32_t>{other.id()}; }));
    const auto focused = display.focusedWindow();
    present(QRect(340, 780, 600, 120));
    settle();
    EXPECT_EQ(active(), (std::vector<std::uint32_t>{other.id()}));
    display.click(QPoint(500, 850));
    EXPECT_TRUE(eventually([&] { return widget->presses == 1; }));
    settle();
    EXPECT_EQ(active(), (std::vector<std::uint32_t>{other.id()}));
    EXPECT_EQ(display.focusedWindow(), focused);
}

TEST_F(X11PanelWindowTest, isRightAgainAfterARestartOfTheWindowManager) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    const QRect frame(1540, 680, 600, 120);
    present(frame);
    panel->setInputRegion(QRect(10, 10, 50, 50));
    settle();
    display.stopWindowManager();
    ASSERT_TRUE(eventually([&] { return !clients->managed(); }));
    ASSERT_TRUE(display.startWindowManager());
    ASSERT_TRUE(eventually([&] { return clients->managed(); }));
    EXPECT_TRUE(eventually([&] { return display.isViewable(id()) && place() == frame; }));
    EXPECT_TRUE(standsAsADock());
    EXPECT_TRUE(eventually([&] { return shape(XCB_SHAPE_SK_INPUT) == QRegion(10, 10, 50, 50); }));
    settle();
    EXPECT_EQ(place(), frame) << "and stays there";
}

TEST_F(X11PanelWindowTest, standsToThePixelWithoutWindowManagerToo) {
    startPanel();
    present(QRect(1540, 680, 600, 120));
    EXPECT_TRUE(eventually([&] { return place() == QRect(1540, 680, 600, 120); }));
}

TEST_F(X11PanelWindowTest, givesInToAWindowManagerThatInsistsOnAnotherPlace) {
    startPanel();
    const QRect frame(300, 300, 200, 100);
    present(frame);
    ASSERT_TRUE(eventually([&] { return place() == frame; }));
    QRect known;
    QObject::connect(panel.get(), &PanelWindow::frameChanged, [&] { known = panel->frame(); });
    int moves = 0;
    const auto insist = [&] {
        if (place() != QRect(50, 60, 200, 100)) {
            const std::array<std::uint32_t, 2> position{50, 60};
            xcb_configure_window(display.xcb(), id(), XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y,
                                 position.data());
            ++moves;
        }
        return false;
    };
    VirtualDisplay::waitUntil(insist, 4000);
    // The first place, and five reminders.
    EXPECT_EQ(moves, 6);
    EXPECT_EQ(place(), QRect(50, 60, 200, 100));
    EXPECT_TRUE(eventually([&] { return panel->frame() == place(); })) << "where the window is";
    EXPECT_EQ(known, place());
    known = QRect();
    panel->setFrame(QRect(400, 300, 200, 100));
    EXPECT_EQ(panel->frame(), QRect(400, 300, 200, 100));
    EXPECT_TRUE(eventually([&] { return place() == QRect(400, 300, 200, 100); }));
    settle();
    EXPECT_EQ(panel->frame(), place());
    EXPECT_EQ(known, QRect()) << "what setFrame does is no news";
}

TEST_F(X11PanelWindowTest, orderFrontBringsItAboveOtherPanels) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    present(QRect(300, 300, 200, 100));
    test::ColourWidget second;
    second.colour = Qt::blue;
    X11PanelWindow other(second, *connection, *compositor, *screens);
    other.setFrame(QRect(300, 300, 200, 100));
    other.orderFront();
    EXPECT_TRUE(eventually([&] { return display.pixel(QPoint(400, 350)) == qRgb(0, 0, 255); }));
    panel->orderFront();
    EXPECT_TRUE(eventually([&] { return display.pixel(QPoint(400, 350)) == qRgb(255, 0, 0); }));
}

TEST_F(X11PanelWindowTest, closingIsForGood) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    present(QRect(300, 300, 200, 100));
    const auto window = id();
    panel->close();
    EXPECT_TRUE(eventually([&] { return !display.isViewable(window); }));
    EXPECT_FALSE(panel->isVisible());
    panel->orderFront();
    panel->setFrame(QRect(0, 0, 10, 10));
    settle();
    EXPECT_FALSE(display.isViewable(window));
    EXPECT_EQ(panel->frame(), QRect(300, 300, 200, 100));
    EXPECT_TRUE(panel->grab().isNull());
}

TEST_F(X11PanelWindowTest, outlivesItsContentsWithoutHarm) {
    startPanel();
    present(QRect(300, 300, 200, 100));
    widget.reset();
    panel->setFrame(QRect(0, 0, 10, 10));
    panel->setInputRegion(QRect(0, 0, 1, 1));
    panel->orderFront();
    EXPECT_FALSE(panel->isVisible());
    EXPECT_TRUE(panel->grab().isNull());
    panel->close();
}

TEST_F(X11PanelWindowTest, grabsAtDevicePixels) {
    setenv("QT_SCALE_FACTOR", "2", 1);
    startPanel();
    unsetenv("QT_SCALE_FACTOR");
    panel->setFrame(QRect(10, 10, 100, 40));
    const auto image = panel->grab();
    EXPECT_EQ(image.size(), QSize(200, 80));
    EXPECT_EQ(image.devicePixelRatio(), 2.0);
    EXPECT_EQ(image.pixelColor(100, 40), QColor(Qt::red));
}

TEST_F(X11PanelWindowTest, aRecreatedNativeWindowIsDressedAgain) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    present(QRect(300, 300, 200, 100));
    panel->setInputRegion(QRect(10, 10, 50, 50));
    const auto before = id();
    auto* window = widget->windowHandle();
    window->destroy();
    window->create();
    window->show();
    const auto now = static_cast<xcb_window_t>(window->winId());
    ASSERT_NE(now, before);
    ASSERT_TRUE(eventually([&] { return display.isViewable(now); }));
    EXPECT_EQ(display.atomNames(now, "_NET_WM_WINDOW_TYPE"), (Names{"_NET_WM_WINDOW_TYPE_DOCK"}));
    EXPECT_TRUE(eventually([&] { return shape(XCB_SHAPE_SK_INPUT) == QRegion(10, 10, 50, 50); }));
}

} // namespace quillary
