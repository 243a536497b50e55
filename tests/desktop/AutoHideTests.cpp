#include "tests/desktop/DesktopFixture.h"
#include "tests/x11/TestWindow.h"

#include <array>
#include <chrono>
#include <cstdlib>

namespace quillary::test {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds hideDelay{600};
const QColor red(220, 20, 20);
const QRect leftScreen(0, 0, 1280, 900);
const QPoint farAway(640, 300);
// Of the first of three icons of 50 points that don't grow, on LEFT at the bottom.
const QRect iconInPlace(559, 831, 50, 50);

// Three icons of 50 points that don't grow: a panel of 206 × 127 whose row begins 14 points from its ends.
const std::string resting = R"("iconSize":50,"magnification":"off","autoHide":true)";

class AutoHideTest : public DesktopFixture {
protected:
    void SetUp() override {
        DesktopFixture::SetUp();
        items = {home.install("red", red), "/b", "/c"};
    }
    /// Starts with one kind of dock on LEFT and another on RIGHT.
    void startWith(const std::string& left, const std::string& right) {
        home.writeSettings(settingsJson({dockJson(leftKey, items, left), dockJson(rightKey, items, right)}));
        startWithDocks(2);
    }
    void startWith(const std::string& options = resting) { startWith(options, options); }

    [[nodiscard]] bool isHidden(xcb_window_t dock) const { return inputShape(dock).isEmpty(); }
    [[nodiscard]] bool reveals(xcb_window_t dock) const {
        return eventually([&] { return !isHidden(dock); });
    }
    [[nodiscard]] bool hides(xcb_window_t dock) const {
        return eventually([&] { return isHidden(dock); });
    }
    /// Whether the dock stays as it is for so long.
    [[nodiscard]] bool staysHidden(xcb_window_t dock, int longest = 400) const {
        return !VirtualDisplay::waitUntil([&] { return !isHidden(dock); }, longest);
    }
    [[nodiscard]] bool staysShown(xcb_window_t dock, int longest) const {
        return !VirtualDisplay::waitUntil([&] { return isHidden(dock); }, longest);
    }
    [[nodiscard]] static std::string on(const std::string& edge) {
        return resting + R"(,"edge":")" + edge + "\"";
    }

    std::vector<std::string> items;
};

/// Counts what happens to a window, and to the frame that a window manager may have put around it.
class Watch {
public:
    Watch(const VirtualDisplay& display, xcb_window_t window)
        : m_connection(xcb_connect(display.name().c_str(), nullptr)) {
        const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        while (window != display.root() && window != XCB_WINDOW_NONE) {
            xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &mask);
            auto* tree = xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr);
            window = tree != nullptr ? tree->parent : xcb_window_t{XCB_WINDOW_NONE};
            std::free(tree);
        }
        sync();
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    ~Watch() { xcb_disconnect(m_connection); }

    /// Moves, sizes, unmaps, maps, reparents and the end; a change of stacking arrives as a configuration of
    /// the same place.
    [[nodiscard]] int events() {
        sync();
        while (auto* event = xcb_poll_for_event(m_connection)) {
            ++m_count;
            std::free(event);
        }
        return m_count;
    }

private:
    void sync() const {
        std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

    xcb_connection_t* m_connection;
    int m_count = 0;
};

} // namespace

TEST_F(AutoHideTest, aDockHidesSixTenthsOfASecondAfterThePointerLeft) {
    startWith();
    ASSERT_TRUE(hides(leftDock()));
    display.movePointer(QPoint(640, 899));
    ASSERT_TRUE(reveals(leftDock()));
    ASSERT_TRUE(staysShown(leftDock(), 1000)) << "under the pointer";

    const auto left = Clock::now();
    display.movePointer(farAway);
    ASSERT_TRUE(hides(leftDock()));
    EXPECT_GE(Clock::now() - left, hideDelay);
    EXPECT_TRUE(eventually([&] { return colourBox(red, leftScreen).isNull(); }));
}

TEST_F(AutoHideTest, furtherMovementsOutsideDoNotPutTheHidingOff) {
    startWith();
    display.movePointer(QPoint(640, 899));
    ASSERT_TRUE(reveals(leftDock()));
    // Moves on until it hides; the deadline is the failure.
    int step = 0;
    EXPECT_TRUE(eventually([&] {
        ++step;
        display.movePointer(farAway + QPoint(step % 100, step % 50));
        return isHidden(leftDock());
    }));
}

TEST_F(AutoHideTest, aPointerThatComesBackKeepsTheDock) {
    startWith();
    display.movePointer(QPoint(640, 899));
    ASSERT_TRUE(reveals(leftDock()));
    bool inTime = false;
    // On a machine that is busy elsewhere the way there and back may take too long to mean anything.
    for (int attempt = 0; attempt < 20 && !inTime; ++attempt) {
        display.movePointer(QPoint(640, 870));
        display.movePointer(QPoint(640, 899));
        ASSERT_TRUE(reveals(leftDock()));
        const auto left = Clock::now();
        display.movePointer(farAway);
        VirtualDisplay::runFor(300);
        display.movePointer(QPoint(640, 870));
        inTime = Clock::now() - left < milliseconds(400);
    }
    ASSERT_TRUE(inTime);
    EXPECT_TRUE(staysShown(leftDock(), 1200));
}

TEST_F(AutoHideTest, theStripOfThreePointsRevealsOnEveryEdge) {
    struct Edge {
        std::string name;
        QPoint outside;
        QPoint inside;
        QPoint rightOutside;
        QPoint rightInside;
    };
    const std::array edges = {
        Edge{"bottom", {640, 896}, {640, 897}, {1840, 796}, {1840, 797}},
        Edge{"top", {640, 4}, {640, 3}, {1840, 4}, {1840, 3}},
        Edge{"left", {4, 450}, {3, 450}, {1284, 400}, {1283, 400}},
        Edge{"right", {1276, 450}, {1277, 450}, {2396, 400}, {2397, 400}},
    };
    for (const auto& edge : edges) {
        SCOPED_TRACE(edge.name);
        startWith(on(edge.name));
        ASSERT_TRUE(hides(leftDock()) && hides(rightDock()));
        display.movePointer(edge.outside);
        EXPECT_TRUE(staysHidden(leftDock(), 200)) << "one point too far";
        display.movePointer(edge.inside);
        EXPECT_TRUE(reveals(leftDock()));
        EXPECT_TRUE(isHidden(rightDock())) << "the other screen's";
        EXPECT_TRUE(eventually([&] { return !colourBox(red, leftScreen).isNull(); }));

        display.movePointer(farAway);
        ASSERT_TRUE(hides(leftDock()));
        display.movePointer(edge.rightOutside);
        EXPECT_TRUE(staysHidden(rightDock(), 200)) << "one point too far";
        display.movePointer(edge.rightInside);
        EXPECT_TRUE(reveals(rightDock()));
        EXPECT_TRUE(isHidden(leftDock())) << "the other screen's";
        display.movePointer(farAway);
        ASSERT_TRUE(program.quit());
    }
}

TEST_F(AutoHideTest, besideTheRowTheEdgeRevealsNothing) {
    startWith();
    ASSERT_TRUE(hides(leftDock()));
    // The row is 178 long: from 551 to 729.
    display.movePointer(QPoint(549, 899));
    EXPECT_TRUE(staysHidden(leftDock()));
    display.movePointer(QPoint(731, 899));
    EXPECT_TRUE(staysHidden(leftDock()));
    display.movePointer(QPoint(728, 899));
    EXPECT_TRUE(reveals(leftDock()));
}

TEST_F(AutoHideTest, anEdgeBetweenTwoScreensRevealsTheDockWhoseStripThePointerIsIn) {
    startWith(on("right"), on("left"));
    ASSERT_TRUE(hides(leftDock()) && hides(rightDock()));
    display.movePointer(QPoint(1277, 420));
    EXPECT_TRUE(reveals(leftDock()));
    EXPECT_TRUE(staysHidden(rightDock(), 200));
    display.movePointer(QPoint(1283, 420));
    EXPECT_TRUE(reveals(rightDock()));
    EXPECT_TRUE(hides(leftDock())) << "the pointer went on to the other screen";
    EXPECT_FALSE(isHidden(rightDock()));
    display.movePointer(QPoint(1700, 420));
    EXPECT_TRUE(hides(rightDock()));
}

TEST_F(AutoHideTest, aMaximisedWindowOverTheEdgeIsNoObstacle) {
    startWith();
    TestWindow window(display, QRect(100, 100, 300, 200));
    window.setClass("maximised", "maximised");
    window.setAtoms("_NET_WM_STATE", {"_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ"});
    ASSERT_TRUE(window.show());
    ASSERT_TRUE(eventually([&] { return display.geometry(window.id()).bottom() > 890; }));
    display.movePointer(QPoint(640, 899));
    EXPECT_TRUE(reveals(leftDock()));
    EXPECT_TRUE(eventually([&] { return !colourBox(red, leftScreen).isNull(); })) << "above the window";
    display.movePointer(farAway);
    EXPECT_TRUE(hides(leftDock()));
    EXPECT_TRUE(eventually([&] { return colourBox(red, leftScreen).isNull(); }));
}

TEST_F(AutoHideTest, aDragOfAnotherProgramRevealsTheDock) {
    startWith();
    ASSERT_TRUE(hides(leftDock()));
    TestWindow window(display, QRect(500, 200, 300, 200));
    ASSERT_TRUE(window.show());
    display.movePointer(farAway);
    display.pressButton(1);
    ASSERT_TRUE(eventually([&] { return window.clicks() == 1; }));
    ASSERT_TRUE(window.grabPointer());
    for (int step = 1; step <= 10; ++step) {
        display.movePointer(QPoint(640, 299 + 60 * step));
    }
    EXPECT_TRUE(reveals(leftDock()));
    display.movePointer(farAway);
    EXPECT_TRUE(hides(leftDock()));
    display.releaseButton(1);
}

TEST_F(AutoHideTest, aDragWithAnotherButtonRevealsTheDockOnlyAtItsRelease) {
    startWith();
    ASSERT_TRUE(hides(leftDock()));
    TestWindow window(display, QRect(500, 200, 300, 200));
    ASSERT_TRUE(window.show());
    for (const int button : {2, 3}) {
        SCOPED_TRACE(button);
        display.movePointer(farAway);
        display.pressButton(button);
        for (int step = 1; step <= 10; ++step) {
            display.movePointer(QPoint(640, 299 + 60 * step));
        }
        EXPECT_TRUE(staysHidden(leftDock()));
        display.releaseButton(button);
        EXPECT_TRUE(reveals(leftDock()));
        display.movePointer(farAway);
        ASSERT_TRUE(hides(leftDock()));
    }
}

TEST_F(AutoHideTest, clicksGoThroughAHiddenDockAndThroughTheLabelRoomOfAShownOne) {
    startWith();
    ASSERT_TRUE(hides(leftDock()));
    TestWindow below(display, QRect(300, 500, 700, 380));
    below.setClass("below", "below");
    ASSERT_TRUE(below.show());
    // Where the icons would be.
    display.click(QPoint(640, 860));
    EXPECT_TRUE(eventually([&] { return below.clicks() == 1; }));
    EXPECT_TRUE(isHidden(leftDock()));

    // The panel begins at 773; the row takes clicks from 819 on.
    display.movePointer(QPoint(640, 899));
    ASSERT_TRUE(reveals(leftDock()));
    ASSERT_TRUE(eventually([&] { return colourBox(red, leftScreen) == iconInPlace; }));
    display.click(QPoint(640, 800));
    EXPECT_TRUE(eventually([&] { return below.clicks() == 2; }));
}

TEST_F(AutoHideTest, hidingNeverMovesUnmapsOrReplacesTheWindow) {
    startWith(R"("iconSize":50,"magnification":"big","autoHide":true)");
    ASSERT_TRUE(hides(leftDock()));
    const auto dock = leftDock();
    const QRect place = display.geometry(dock);
    Watch watch(display, dock);
    for (int cycle = 0; cycle < 4; ++cycle) {
        display.movePointer(QPoint(640, 899));
        ASSERT_TRUE(reveals(dock));
        display.movePointer(QPoint(640, 860));
        ASSERT_TRUE(eventually([&] { return !colourBox(red, leftScreen).isNull(); }));
        EXPECT_EQ(leftDock(), dock);
        EXPECT_EQ(display.geometry(dock), place);
        display.movePointer(farAway);
        ASSERT_TRUE(hides(dock));
        EXPECT_EQ(leftDock(), dock);
        EXPECT_EQ(display.geometry(dock), place);
    }
    EXPECT_EQ(watch.events(), 0);
}

TEST_F(AutoHideTest, aClickOnADockTakesNoFocus) {
    startWith(R"("iconSize":50,"magnification":"off")");
    TestWindow window(display, QRect(300, 200, 400, 300));
    window.setClass("active", "active");
    ASSERT_TRUE(window.show());
    ASSERT_TRUE(eventually([&] { return isActive(window.id()); }));
    ASSERT_TRUE(eventually([&] { return colourBox(red, leftScreen) == iconInPlace; }));
    const auto focused = display.focusedWindow();
    // An item that doesn't exist, whose opening is one line of the log.
    display.click(QPoint(640, 855));
    EXPECT_TRUE(eventually([&] { return program.log().find("could not open /b") != std::string::npos; }));
    EXPECT_TRUE(isActive(window.id()));
    // The margin of the row, and a button without a meaning.
    display.click(QPoint(555, 855));
    VirtualDisplay::runFor(100);
    display.click(QPoint(640, 855), 2);
    EXPECT_FALSE(VirtualDisplay::waitUntil(
        [&] { return !isActive(window.id()) || display.focusedWindow() != focused; }, 500));
}

} // namespace quillary::test
