#include "tests/desktop/DesktopFixture.h"
#include "tests/x11/TestWindow.h"

namespace quillary::test {

namespace {

const QColor red(220, 20, 20);
const QRect leftScreen(0, 0, 1280, 900);
const QRect rightScreen(1280, 0, 1120, 800);
const QPoint leftStrip(640, 899);
const QPoint rightStrip(1840, 799);
const std::string plain = R"("iconSize":50,"magnification":"off")";

class FullScreenTest : public DesktopFixture {
protected:
    void startWith(const std::string& options) {
        const std::vector<std::string> items{home.install("red", red), "/b", "/c"};
        home.writeSettings(
            settingsJson({dockJson(leftKey, items, options), dockJson(rightKey, items, options)}));
        startWithDocks(2);
    }
    /// Shows the window on LEFT and makes it full screen.
    [[nodiscard]] bool cover(TestWindow& window) {
        window.setClass("player", "player");
        window.setAtoms("_NET_WM_STATE", {"_NET_WM_STATE_FULLSCREEN"});
        return window.show() && eventually([&] {
                   return display.geometry(window.id()) == leftScreen && isActive(window.id());
               });
    }
    /// Asks the window manager as the program of the window would.
    void leaveFullScreen(xcb_window_t window) {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = display.atom("_NET_WM_STATE");
        message.data.data32[1] = display.atom("_NET_WM_STATE_FULLSCREEN");
        xcb_send_event(display.xcb(), 0, display.root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&message));
        xcb_flush(display.xcb());
    }
    [[nodiscard]] bool isShown(const QRect& screen) const { return !colourBox(red, screen).isNull(); }
    [[nodiscard]] bool isHidden(xcb_window_t dock) const { return inputShape(dock).isEmpty(); }
};

} // namespace

TEST_F(FullScreenTest, aFocusedFullScreenWindowCoversTheDockOfItsScreen) {
    startWith(plain);
    ASSERT_TRUE(eventually([&] { return isShown(leftScreen) && isShown(rightScreen); }));
    TestWindow window(display, QRect(100, 100, 300, 200));
    ASSERT_TRUE(cover(window));
    EXPECT_TRUE(eventually([&] { return !isShown(leftScreen); }));
    EXPECT_TRUE(isShown(rightScreen));
    // No click of the covered dock's either.
    display.click(QPoint(640, 856));
    EXPECT_TRUE(eventually([&] { return window.clicks() == 1; }));

    leaveFullScreen(window.id());
    EXPECT_TRUE(eventually([&] { return isShown(leftScreen); }));
}

TEST_F(FullScreenTest, theStripRevealsNothingBelowAFullScreenWindow) {
    startWith(plain + R"(,"autoHide":true)");
    ASSERT_TRUE(eventually([&] { return isHidden(leftDock()) && isHidden(rightDock()); }));
    TestWindow window(display, QRect(100, 100, 300, 200));
    ASSERT_TRUE(cover(window));
    display.movePointer(leftStrip);
    EXPECT_FALSE(VirtualDisplay::waitUntil([&] { return !isHidden(leftDock()); }, 700));
    display.movePointer(rightStrip);
    EXPECT_TRUE(eventually([&] { return !isHidden(rightDock()) && isShown(rightScreen); }))
        << "the other screen's";
    display.movePointer(leftStrip);
    EXPECT_TRUE(eventually([&] { return isHidden(rightDock()); }));
    EXPECT_TRUE(isHidden(leftDock()));

    leaveFullScreen(window.id());
    EXPECT_TRUE(eventually([&] { return !isHidden(leftDock()) && isShown(leftScreen); }))
        << "the pointer is still in the strip";
}

TEST_F(FullScreenTest, aShownDockThatHidesItselfGoesBelowTheWindowAndStaysThere) {
    startWith(plain + R"(,"autoHide":true)");
    ASSERT_TRUE(eventually([&] { return isHidden(leftDock()); }));
    display.movePointer(leftStrip);
    ASSERT_TRUE(eventually([&] { return !isHidden(leftDock()) && isShown(leftScreen); }));
    TestWindow window(display, QRect(100, 100, 300, 200));
    ASSERT_TRUE(cover(window));
    EXPECT_TRUE(eventually([&] { return !isShown(leftScreen); }));
    // Its covered row takes no pointer: nothing of it comes up.
    display.movePointer(QPoint(640, 860));
    EXPECT_FALSE(VirtualDisplay::waitUntil([&] { return isShown(leftScreen); }, 400));
}

TEST_F(FullScreenTest, aFullScreenWindowWithoutTheFocusCoversNothing) {
    startWith(plain + R"(,"autoHide":true)");
    ASSERT_TRUE(eventually([&] { return isHidden(leftDock()); }));
    TestWindow window(display, QRect(100, 100, 300, 200));
    ASSERT_TRUE(cover(window));
    TestWindow other(display, QRect(1500, 200, 300, 200));
    other.setClass("other", "other");
    ASSERT_TRUE(other.show());
    ASSERT_TRUE(eventually([&] { return isActive(other.id()); }));
    display.movePointer(leftStrip);
    EXPECT_TRUE(eventually([&] { return !isHidden(leftDock()); }));
}

} // namespace quillary::test
