#include "tests/desktop/DesktopFixture.h"

#include <algorithm>
#include <array>
#include <random>

namespace quillary::test {

namespace {

/// Three icons of 50 points that grow to 90: 342 × 167.
class HostileTest : public DesktopFixture {
protected:
    void SetUp() override {
        DesktopFixture::SetUp();
        const std::vector<std::string> items{"/a", "/b", "/c"};
        const std::string options = R"("iconSize":50,"magnification":"big","showRunning":false)";
        home.writeSettings(
            settingsJson({dockJson(leftKey, items, options), dockJson(rightKey, items, options)}));
        startWithDocks(2);
        for (const char* name : {"WM_CLASS", "_NET_WM_NAME", "WM_NAME", "_NET_WM_PID", "WM_CLIENT_MACHINE",
                                 "_NET_WM_WINDOW_TYPE", "_NET_WM_STATE", "_NET_WM_STRUT", "WM_TRANSIENT_FOR",
                                 "_NET_WM_STRUT_PARTIAL", "_GTK_APPLICATION_ID", "_NET_WM_ICON"}) {
            properties.push_back(display.atom(name));
        }
    }
    /// Whether it still follows the pointer.
    bool answers() {
        display.movePointer(QPoint(640, 850));
        const bool grew = eventually([&] { return inputShape(leftDock()) == QRegion(8, 46, 327, 121); });
        display.movePointer(QPoint(640, 300));
        return grew && eventually([&] { return inputShape(leftDock()) == QRegion(76, 86, 191, 81); });
    }
    std::vector<std::uint8_t> garbage(std::size_t size) {
        std::vector<std::uint8_t> bytes(size);
        std::ranges::generate(bytes, [this] { return static_cast<std::uint8_t>(random()); });
        return bytes;
    }
    /// A window whose properties are of any type, format and content.
    xcb_window_t showGarbage() {
        auto* xcb = display.xcb();
        const auto window = xcb_generate_id(xcb);
        const std::uint32_t pixel = 0;
        xcb_create_window(xcb, XCB_COPY_FROM_PARENT, window, display.root(), 0, 0, 20, 20, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, &pixel);
        constexpr std::array sizes{0U, 1U, 3U, 12U, 64U, 4000U};
        for (const auto property : properties) {
            const std::uint8_t format = std::array<std::uint8_t, 3>{8, 16, 32}.at(random() % 3);
            const std::uint32_t items = sizes.at(random() % sizes.size());
            const auto type = static_cast<xcb_atom_t>(1 + random() % 30);
            const auto bytes = garbage(std::size_t{items} * format / 8);
            xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, window, property, type, format, items,
                                bytes.data());
        }
        xcb_map_window(xcb, window);
        xcb_flush(xcb);
        return window;
    }
    std::vector<xcb_atom_t> properties;
    // Always the same garbage, so that a failure can be repeated.
    std::minstd_rand random{4711};
};

} // namespace

TEST_F(HostileTest, windowsThatComeAndGoWithGarbageOnThemDisturbNothing) {
    const auto before = places();
    std::vector<xcb_window_t> windows;
    for (int i = 0; i < 500; ++i) {
        windows.push_back(showGarbage());
        // Some are gone before anyone can ask about them, some stay a while.
        if (i % 2 == 0 || windows.size() > 20) {
            xcb_destroy_window(display.xcb(), windows.back());
            windows.pop_back();
        }
        if (windows.size() > 10) {
            xcb_destroy_window(display.xcb(), windows.front());
            windows.erase(windows.begin());
        }
    }
    for (const auto window : windows) {
        xcb_destroy_window(display.xcb(), window);
    }
    xcb_flush(display.xcb());
    EXPECT_TRUE(answers()) << program.log();
    EXPECT_TRUE(standAt(before));
    EXPECT_TRUE(program.quit()) << program.log();
}

TEST_F(HostileTest, hugePropertiesAreReadInBounds) {
    constexpr std::size_t huge = std::size_t{8} << 20U;
    const auto window = showGarbage();
    const long before = program.anonymousMemory();
    for (const char* property : {"WM_CLASS", "_NET_WM_NAME", "WM_CLIENT_MACHINE", "_GTK_APPLICATION_ID",
                                 "_NET_WM_STRUT_PARTIAL", "_NET_WM_STATE", "_NET_WM_WINDOW_TYPE"}) {
        // In pieces, as the server takes no request of that length.
        for (std::size_t sent = 0; sent < huge; sent += huge / 64) {
            const std::vector<std::uint8_t> piece(huge / 64, 'x');
            xcb_change_property(display.xcb(), sent == 0 ? XCB_PROP_MODE_REPLACE : XCB_PROP_MODE_APPEND,
                                window, display.atom(property), XCB_ATOM_STRING, 8,
                                static_cast<std::uint32_t>(piece.size()), piece.data());
        }
    }
    xcb_flush(display.xcb());
    EXPECT_TRUE(answers()) << program.log();
    EXPECT_LT(program.anonymousMemory() - before, 7 * static_cast<long>(huge / 1024));
    EXPECT_TRUE(program.quit());
}

TEST_F(HostileTest, aLostDisplayEndsItInOrder) {
    display.killServer();
    const auto end = program.waitForEnd();
    ASSERT_TRUE(end) << "it still runs";
    EXPECT_TRUE(end->status) << "a signal ended it\n" << program.log();
}

} // namespace quillary::test
