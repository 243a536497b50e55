#include "tests/desktop/SettingsWindowFixture.h"

#include <QJsonArray>

#include <algorithm>

namespace quillary::test {

namespace {

using State = AccessibleNode::State;

constexpr xcb_keysym_t tabKey = 0xff09;
constexpr xcb_keysym_t spaceKey = 0x20;
constexpr xcb_keysym_t leftArrow = 0xff51;
constexpr xcb_keysym_t rightArrow = 0xff53;
constexpr xcb_keysym_t homeKey = 0xff50;
constexpr xcb_keysym_t shiftKey = 0xffe1;
constexpr xcb_keysym_t altKey = 0xffe9;
constexpr xcb_keysym_t f4Key = 0xffc1;

class SettingsWindowTest : public SettingsWindowFixture {
protected:
    void SetUp() override {
        SettingsWindowFixture::SetUp();
        startProgram();
    }
    /// The name of what has the focus.
    [[nodiscard]] std::string focused() const {
        const auto node = form().find([](const AccessibleNode& each) { return each.has(State::focused); });
        return node ? node->name() : std::string();
    }
    [[nodiscard]] bool focusReaches(const std::string& name) {
        return eventually([&] { return focused() == name; });
    }
    [[nodiscard]] bool becomes(const char* field, const QJsonValue& value) {
        return eventually([&] { return stored(leftKey, field) == value; });
    }
};

} // namespace

TEST_F(SettingsWindowTest, isAnOrdinaryWindowOfItsSizeInTheMiddle) {
    openSettings();
    const QRect place = display.geometry(settingsWindow());
    EXPECT_EQ(place.size(), QSize(560, 640));
    EXPECT_LT(std::abs(place.center().x() - 640), 20);
    EXPECT_EQ(display.atomNames(settingsWindow(), "_NET_WM_WINDOW_TYPE"),
              std::vector<std::string>{"_NET_WM_WINDOW_TYPE_NORMAL"});
    const auto states = display.atomNames(settingsWindow(), "_NET_WM_STATE");
    EXPECT_EQ(std::ranges::count(states, "_NET_WM_STATE_SKIP_TASKBAR"), 0);
    EXPECT_EQ(std::ranges::count(states, "_NET_WM_STATE_ABOVE"), 0);
    // Smaller than its least size it does not get.
    EXPECT_EQ(display.run({"xdotool", "windowsize", std::to_string(settingsWindow()), "100", "100"}), 0);
    EXPECT_TRUE(eventually([&] { return display.geometry(settingsWindow()).size() == QSize(520, 480); }));
}

TEST_F(SettingsWindowTest, thePointerWorksEveryKindOfControl) {
    openSettings();
    clickOn(control("LEFT", "radio button", "Left"));
    EXPECT_TRUE(becomes("edge", QStringLiteral("left")));
    // The dock is there at once.
    EXPECT_TRUE(eventually([&] {
        const QRect dock = display.geometry(leftDock());
        return dock.left() == 0 && dock.height() > dock.width() / 2 && dock.top() > 100;
    }));
    clickOn(control("LEFT", "radio button", "Bubbles"));
    EXPECT_TRUE(becomes("style", QStringLiteral("bubbles")));
    clickOn(control("LEFT", "check box", "Bounce when opening apps"));
    EXPECT_TRUE(becomes("bounceOnLaunch", false));
    clickOn(control("LEFT", "check box", "Auto-hide (show when the pointer touches the edge)"));
    EXPECT_TRUE(becomes("autoHide", true));
    clickOn(control("LEFT", "check box", "Show a Dock on this screen"));
    EXPECT_TRUE(becomes("enabled", false));
    EXPECT_TRUE(eventually([&] { return docks().size() == 1; }));
    clickOn(control("LEFT", "check box", "Show a Dock on this screen"));
    EXPECT_TRUE(becomes("enabled", true));
    clickOn(control("General", "check box", "Hide the macOS Dock (Quillary replaces it)"));
    EXPECT_TRUE(eventually(
        [&] { return home.settings().value(QStringLiteral("hideSystemDock")) == QJsonValue(false); }));
    clickOn(control("RAM on Dock", "check box", "Show which apps are eating memory"));
    EXPECT_TRUE(
        eventually([&] { return home.settings().value(QStringLiteral("showMemory")) == QJsonValue(true); }));
    EXPECT_EQ(stored(rightKey, "edge"), QJsonValue(QStringLiteral("bottom")));
}

TEST_F(SettingsWindowTest, draggingTheSizeChangesTheDockByWholeSteps) {
    openSettings();
    const QRect slider = control("LEFT", "slider", "Icon size").extents();
    const int before = display.geometry(leftDock()).height();
    // From 48 the knob is dragged to the far end; its way is the slider less the ring's and the knob's room.
    const int start = slider.left() + 13 + 202 / 3;
    display.movePointer({start, slider.center().y()});
    display.pressButton(1);
    double last = 48;
    for (int x = start; x <= slider.right(); x += 4) {
        display.movePointer({x, slider.center().y()});
        VirtualDisplay::runFor(20);
        const double size = stored(leftKey, "iconSize").toDouble(48);
        EXPECT_EQ(static_cast<int>(size) % 4, 0);
        EXPECT_GE(size, last);
        last = size;
    }
    display.releaseButton(1);
    EXPECT_TRUE(becomes("iconSize", 80));
    EXPECT_TRUE(eventually([&] { return display.geometry(leftDock()).height() > before + 20; }));
}

TEST_F(SettingsWindowTest, theWheelOverASliderScrollsTheForm) {
    openSettings();
    const auto slider = control("LEFT", "slider", "Icon size");
    const QRect place = slider.extents();
    display.click(place.center() + QPoint(60, 0), 5);
    EXPECT_TRUE(eventually([&] { return slider.extents().y() < place.y(); }));
    EXPECT_EQ(stored(leftKey, "iconSize"), QJsonValue(QJsonValue::Undefined));
}

TEST_F(SettingsWindowTest, theKeyboardAloneIsEnough) {
    openSettings();
    // The first control has the focus when the window appears.
    ASSERT_TRUE(focusReaches("Show which apps are eating memory")) << focused();
    display.typeKey(spaceKey);
    EXPECT_TRUE(
        eventually([&] { return home.settings().value(QStringLiteral("showMemory")) == QJsonValue(true); }));
    display.typeKey(tabKey);
    display.typeKey(tabKey);
    ASSERT_TRUE(focusReaches("Bottom")) << focused();
    display.typeKey(rightArrow);
    EXPECT_TRUE(becomes("edge", QStringLiteral("left")));
    ASSERT_TRUE(focusReaches("Left")) << focused();
    display.typeKey(tabKey);
    ASSERT_TRUE(focusReaches("Glass")) << focused();
    display.typeKey(rightArrow);
    EXPECT_TRUE(becomes("style", QStringLiteral("pill")));
    display.typeKey(tabKey);
    ASSERT_TRUE(focusReaches("Icon size")) << focused();
    display.typeKey(leftArrow);
    EXPECT_TRUE(becomes("iconSize", 44));
    display.typeKey(homeKey);
    EXPECT_TRUE(becomes("iconSize", 32));
    display.typeKey(tabKey, shiftKey);
    EXPECT_TRUE(focusReaches("Pill")) << focused();
    // Far down: what gets the focus is scrolled into sight.
    for (const auto* name : {"Icon size", "Subtle", "Bounce when opening apps", "Show running apps",
                             "Auto-hide (show when the pointer touches the edge)",
                             "Add apps from the macOS Dock", "Show a Dock on this screen", "Bottom"}) {
        display.typeKey(tabKey);
        ASSERT_TRUE(focusReaches(name)) << name << " but " << focused();
    }
    const auto node = form().find([](const AccessibleNode& each) { return each.has(State::focused); });
    ASSERT_TRUE(node);
    EXPECT_TRUE(display.geometry(settingsWindow()).contains(node->extents()));
}

TEST_F(SettingsWindowTest, theItemsOfTheSystemsDockAreAddedOnce) {
    Home::write(home.path() / "Library/Preferences/com.apple.dock.plist",
                Home::read(std::filesystem::path(QUILLARY_DOCK_DATA) / "02.plist"));
    openSettings();
    const auto add = control("LEFT", "push button", "Add apps from the macOS Dock");
    clickOn(add);
    ASSERT_TRUE(eventually([&] { return stored(leftKey, "items").toArray().size() > 2; }));
    const auto items = stored(leftKey, "items").toArray();
    EXPECT_EQ(items.at(0), QJsonValue(QStringLiteral("/a")));
    EXPECT_EQ(items.at(1), QJsonValue(QStringLiteral("/b")));
    EXPECT_TRUE(eventually(
        [&] { return form().find("label", std::to_string(items.size()) + " pinned").has_value(); }));
    clickOn(add);
    VirtualDisplay::runFor(500);
    EXPECT_EQ(stored(leftKey, "items").toArray(), items);
}

TEST_F(SettingsWindowTest, sectionsComeAndGoWithTheScreens) {
    openSettings();
    const auto window = settingsWindow();
    const auto text = Home::read(home.settingsFile());
    display.unplugMonitor("RIGHT");
    EXPECT_TRUE(eventually([&] { return !hasSection("RIGHT"); }));
    display.plugMonitor("RIGHT", QRect(1280, 0, 1120, 800));
    EXPECT_TRUE(eventually([&] { return hasSection("RIGHT"); }));
    EXPECT_EQ(settingsWindow(), window);
    EXPECT_TRUE(display.isViewable(window));
    EXPECT_EQ(Home::read(home.settingsFile()), text);
}

TEST_F(SettingsWindowTest, openingItWritesNothing) {
    const auto text = Home::read(home.settingsFile());
    const auto time = std::filesystem::last_write_time(home.settingsFile());
    openSettings();
    VirtualDisplay::runFor(500);
    EXPECT_EQ(Home::read(home.settingsFile()), text);
    EXPECT_EQ(std::filesystem::last_write_time(home.settingsFile()), time);
    EXPECT_FALSE(std::filesystem::exists(home.path() / "config/autostart"));
}

TEST_F(SettingsWindowTest, startingAtLoginIsAnEntryForTheRunningProgram) {
    openSettings();
    const auto entry = home.path() / "config/autostart/quillary.desktop";
    const auto login = control("General", "check box", "Launch Quillary at login");
    clickOn(login);
    ASSERT_TRUE(eventually([&] { return std::filesystem::exists(entry); }));
    EXPECT_NE(Home::read(entry).find("\nExec=\"" + std::string(QUILLARY_PROGRAM) + "\"\n"), std::string::npos)
        << Home::read(entry);
    EXPECT_TRUE(login.has(State::checked));
    clickOn(login);
    EXPECT_TRUE(eventually([&] { return !std::filesystem::exists(entry); }));
    EXPECT_FALSE(login.has(State::checked));
}

TEST_F(SettingsWindowTest, aRefusedEntryPutsTheSwitchBackWithOneLine) {
    Home::write(home.path() / "config/autostart", "no folder");
    openSettings();
    const auto login = control("General", "check box", "Launch Quillary at login");
    clickOn(login);
    const std::string line = "Quillary: launch at login failed ";
    ASSERT_TRUE(eventually([&] { return program.log().find(line) != std::string::npos; }));
    VirtualDisplay::runFor(300);
    EXPECT_FALSE(login.has(State::checked));
    EXPECT_EQ(program.log().find(line), program.log().rfind(line));
}

TEST_F(SettingsWindowTest, closingHidesItAndItComesBack) {
    openSettings();
    const QRect place = display.geometry(settingsWindow());
    display.typeKey(f4Key, altKey);
    EXPECT_TRUE(eventually([&] { return settingsWindow() == XCB_WINDOW_NONE; }));
    EXPECT_TRUE(program.isRunning());
    EXPECT_EQ(docks().size(), 2U);
    openSettings();
    EXPECT_EQ(display.geometry(settingsWindow()), place);
}

TEST_F(SettingsWindowTest, itComesToTheFrontFromAnotherDesktopAndWhenMinimised) {
    openSettings();
    const auto window = settingsWindow();
    const QRect place = display.geometry(window);
    const auto goTo = [&](const std::string& desktop) {
        EXPECT_EQ(display.run({"xdotool", "set_desktop", desktop}), 0);
    };
    const auto minimise = [&] {
        EXPECT_EQ(display.run({"xdotool", "windowminimize", std::to_string(window)}), 0);
    };
    const auto comes = [&] {
        EXPECT_TRUE(eventually([&] { return !display.isViewable(window); }));
        openSettings();
        EXPECT_EQ(settingsWindow(), window);
        EXPECT_TRUE(eventually([&] { return display.isViewable(window); }));
        EXPECT_TRUE(eventually([&] { return display.geometry(window) == place; }));
    };
    {
        SCOPED_TRACE("on another desktop");
        goTo("2");
        comes();
    }
    {
        SCOPED_TRACE("minimised");
        minimise();
        comes();
    }
    {
        SCOPED_TRACE("minimised on another desktop");
        minimise();
        goTo("1");
        comes();
    }
}

TEST_F(SettingsWindowTest, itComesToTheFrontOfTheOtherWindowsOfItsDesktop) {
    home.install("other", Qt::green);
    openSettings();
    const QRect place = display.geometry(settingsWindow());
    const auto other = display.start({QUILLARY_TEST_APPLICATION, "other"});
    ASSERT_TRUE(
        eventually([&] { return windowOf("other") != XCB_WINDOW_NONE && isActive(windowOf("other")); }));
    openSettings();
    EXPECT_TRUE(eventually([&] { return display.geometry(settingsWindow()) == place; }));
    const auto stack = display.numbers(display.root(), "_NET_CLIENT_LIST_STACKING");
    EXPECT_GT(std::ranges::find(stack, settingsWindow()), std::ranges::find(stack, windowOf("other")));
    display.stop(other);
}

} // namespace quillary::test
