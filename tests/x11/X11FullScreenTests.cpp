#include "platform/x11/X11WindowSource.h"
#include "tests/x11/X11Fixture.h"

#include <QWidget>

namespace quillary {

using test::TestWindow;
using test::VirtualDisplay;

namespace {

const QRectF left(0, 0, 1280, 900);
const QRectF right(1280, 0, 1120, 800);

class X11FullScreenTest : public test::X11Fixture {
protected:
    void startSource() {
        startApplication();
        source = std::make_unique<X11WindowSource>(*connection, *clients, *screens, *scheduler);
        QObject::connect(source.get(), &WindowSource::fullScreenChanged, source.get(),
                         [this] { told.push_back(source->fullScreenFrame()); });
    }
    void startManaged() {
        ASSERT_TRUE(display.startWindowManager());
        startSource();
    }
    void TearDown() override {
        source.reset();
        X11Fixture::TearDown();
    }
    enum class Change : std::uint32_t { remove = 0, add = 1 };
    /// Asks the window manager as a program would (EWMH, _NET_WM_STATE).
    void askFullScreen(xcb_window_t window, Change change) {
        ask(window, "_NET_WM_STATE",
            {static_cast<std::uint32_t>(change), display.atom("_NET_WM_STATE_FULLSCREEN"), 0, 1, 0});
    }
    void ask(xcb_window_t window, const std::string& type, const std::vector<std::uint32_t>& values) {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = display.atom(type);
        std::copy(values.begin(), values.end(), std::begin(message.data.data32));
        xcb_send_event(display.xcb(), 0, display.root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&message));
        xcb_flush(display.xcb());
    }
    [[nodiscard]] bool focus(const TestWindow& window) {
        source->activate(window.id());
        return eventually([&] { return source->activeWindow() == window.id(); });
    }
    [[nodiscard]] bool becomes(const std::optional<QRectF>& frame) {
        return eventually([&] { return source->fullScreenFrame() == frame; });
    }
    /// Whether exactly these changes are emitted: waits for them, and for any further one.
    [[nodiscard]] testing::AssertionResult emits(const std::vector<std::optional<QRectF>>& frames) {
        if (eventually([&] { return told.size() >= frames.size(); })) {
            settle();
        }
        return told == frames
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << testing::PrintToString(told.size()) << " changes";
    }

    std::unique_ptr<X11WindowSource> source;
    std::vector<std::optional<QRectF>> told;
};

using Frames = std::vector<std::optional<QRectF>>;

} // namespace

TEST_F(X11FullScreenTest, theStateOfTheFocusedWindowIsFollowed) {
    startManaged();
    TestWindow window(display, QRect(100, 100, 300, 200));
    ASSERT_TRUE(window.show());
    ASSERT_TRUE(focus(window));
    settle();
    EXPECT_EQ(source->fullScreenFrame(), std::nullopt);
    EXPECT_EQ(told, Frames{});
    askFullScreen(window.id(), Change::add);
    EXPECT_TRUE(becomes(left));
    EXPECT_TRUE(eventually([&] { return !told.empty() && told.back() == left; }));
    askFullScreen(window.id(), Change::remove);
    EXPECT_TRUE(becomes(std::nullopt));
    EXPECT_TRUE(eventually([&] { return told.back() == std::nullopt; }));
    settle();
    for (std::size_t i = 1; i < told.size(); ++i) {
        EXPECT_NE(told[i], told[i - 1]) << "nothing is told twice";
    }
}

TEST_F(X11FullScreenTest, aWindowThatComesFullScreenIsToldOnce) {
    startManaged();
    TestWindow window(display, QRect(1400, 100, 300, 200));
    window.setAtoms("_NET_WM_STATE", {"_NET_WM_STATE_FULLSCREEN"});
    ASSERT_TRUE(window.show());
    EXPECT_TRUE(becomes(right));
    EXPECT_TRUE(emits({right}));
}

TEST_F(X11FullScreenTest, thereAtTheStart) {
    ASSERT_TRUE(display.startWindowManager());
    TestWindow window(display, QRect(100, 100, 300, 200));
    window.setAtoms("_NET_WM_STATE", {"_NET_WM_STATE_FULLSCREEN"});
    ASSERT_TRUE(window.show());
    ASSERT_TRUE(VirtualDisplay::waitUntil([&] {
        return display.geometry(window.id()) == QRect(0, 0, 1280, 900) &&
               display.numbers(display.root(), "_NET_ACTIVE_WINDOW") ==
                   std::vector<std::uint32_t>{window.id()};
    }));
    startSource();
    EXPECT_EQ(source->fullScreenFrame(), left);
    EXPECT_EQ(told, Frames{});
}

TEST_F(X11FullScreenTest, onlyWhileItHasTheFocus) {
    startManaged();
    TestWindow window(display, QRect(100, 100, 300, 200));
    TestWindow other(display, QRect(1400, 100, 300, 200));
    window.setAtoms("_NET_WM_STATE", {"_NET_WM_STATE_FULLSCREEN"});
    ASSERT_TRUE(other.show());
    ASSERT_TRUE(window.show());
    ASSERT_TRUE(focus(window));
    ASSERT_TRUE(becomes(left));
    ASSERT_TRUE(focus(other));
    EXPECT_TRUE(becomes(std::nullopt));
    ASSERT_TRUE(focus(window));
    EXPECT_TRUE(becomes(left));
    EXPECT_TRUE(emits({left, std::nullopt, left}));
}

TEST_F(X11FullScreenTest, betweenTwoOfThemNothingIsToldOfLeaving) {
    startManaged();
    TestWindow first(display, QRect(100, 100, 300, 200));
    TestWindow second(display, QRect(1400, 100, 300, 200));
    for (auto* window : {&first, &second}) {
        window->setAtoms("_NET_WM_STATE", {"_NET_WM_STATE_FULLSCREEN"});
        ASSERT_TRUE(window->show());
    }
    ASSERT_TRUE(focus(second));
    ASSERT_TRUE(becomes(right));
    settle();
    told.clear();
    ASSERT_TRUE(focus(first));
    ASSERT_TRUE(becomes(left));
    EXPECT_TRUE(emits({left}));
}

TEST_F(X11FullScreenTest, closingItIsTold) {
    startManaged();
    TestWindow window(display, QRect(100, 100, 300, 200));
    window.setAtoms("_NET_WM_STATE", {"_NET_WM_STATE_FULLSCREEN"});
    ASSERT_TRUE(window.show());
    ASSERT_TRUE(becomes(left));
    window.destroy();
    EXPECT_TRUE(becomes(std::nullopt));
    EXPECT_TRUE(emits({left, std::nullopt}));
}

TEST_F(X11FullScreenTest, minimisingItIsTold) {
    startManaged();
    TestWindow window(display, QRect(100, 100, 300, 200));
    window.setAtoms("_NET_WM_STATE", {"_NET_WM_STATE_FULLSCREEN"});
    ASSERT_TRUE(window.show());
    ASSERT_TRUE(becomes(left));
    ASSERT_EQ(display.run({"xdotool", "windowminimize", std::to_string(window.id())}), 0);
    EXPECT_TRUE(becomes(std::nullopt));
}

TEST_F(X11FullScreenTest, ourOwnWindowsCountToo) {
    startManaged();
    QWidget own;
    own.setGeometry(100, 100, 300, 200);
    own.show();
    ASSERT_TRUE(eventually([&] { return own.isActiveWindow(); }));
    settle();
    EXPECT_EQ(source->fullScreenFrame(), std::nullopt);
    own.showFullScreen();
    EXPECT_TRUE(becomes(left));
    EXPECT_EQ(source->activeWindow(), std::nullopt);
    own.showNormal();
    EXPECT_TRUE(becomes(std::nullopt));
}

TEST_F(X11FullScreenTest, aWindowOverSeveralMonitorsCoversThemAll) {
    startManaged();
    TestWindow window(display, QRect(100, 100, 300, 200));
    ASSERT_TRUE(window.show());
    ASSERT_TRUE(focus(window));
    // Top, bottom, left and right monitor.
    ask(window.id(), "_NET_WM_FULLSCREEN_MONITORS", {0, 0, 0, 1, 1});
    askFullScreen(window.id(), Change::add);
    ASSERT_TRUE(eventually([&] { return source->fullScreenFrame().has_value(); }));
    const auto covers = [&] {
        const auto place = display.geometry(window.id());
        const auto frame = source->fullScreenFrame();
        return frame && *frame == QRectF(place) && told.back() == frame;
    };
    EXPECT_TRUE(eventually(covers));
}

TEST_F(X11FullScreenTest, movesAndSizesAreFollowedWithoutWindowManager) {
    // The test plays the window manager, which may let a full-screen window stand anywhere.
    const auto setRoot = [&](const std::string& property, std::uint32_t value) {
        xcb_change_property(display.xcb(), XCB_PROP_MODE_REPLACE, display.root(), display.atom(property),
                            XCB_ATOM_WINDOW, 32, 1, &value);
        xcb_flush(display.xcb());
    };
    TestWindow check(display, QRect(0, 0, 10, 10));
    check.setNumbers("_NET_SUPPORTING_WM_CHECK", "WINDOW", {check.id()});
    setRoot("_NET_SUPPORTING_WM_CHECK", check.id());
    TestWindow window(display, QRect(0, 0, 1280, 900));
    window.setAtoms("_NET_WM_STATE", {"_NET_WM_STATE_FULLSCREEN"});
    setRoot("_NET_CLIENT_LIST", window.id());
    setRoot("_NET_ACTIVE_WINDOW", window.id());
    startSource();
    ASSERT_EQ(source->fullScreenFrame(), left);
    const std::uint32_t moved[] = {1280, 0, 1120, 800};
    xcb_configure_window(window.xcb(), window.id(),
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         moved);
    xcb_flush(window.xcb());
    EXPECT_TRUE(becomes(right));
    EXPECT_TRUE(emits({right}));
    // A moment without focus.
    setRoot("_NET_ACTIVE_WINDOW", 0);
    VirtualDisplay::runFor(60);
    setRoot("_NET_ACTIVE_WINDOW", window.id());
    VirtualDisplay::runFor(300);
    EXPECT_EQ(told, Frames{right});
    setRoot("_NET_ACTIVE_WINDOW", 0);
    EXPECT_TRUE(becomes(std::nullopt));
}

TEST_F(X11FullScreenTest, aWindowThatVanishesInTheMiddleIsHarmless) {
    startManaged();
    for (int round = 0; round < 10; ++round) {
        TestWindow window(display, QRect(100, 100, 300, 200));
        window.setAtoms("_NET_WM_STATE", {"_NET_WM_STATE_FULLSCREEN"});
        xcb_map_window(window.xcb(), window.id());
        xcb_flush(window.xcb());
        VirtualDisplay::runFor(round * 3);
        window.destroy();
    }
    EXPECT_TRUE(becomes(std::nullopt));
}

} // namespace quillary
