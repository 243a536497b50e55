#include "app/StatusMenu.h"
#include "tests/app/Fixture.h"
#include "tests/app/MenuText.h"

#include <gmock/gmock.h>

namespace quillary::test {
namespace {

using testing::Contains;
using Lines = std::vector<std::string>;

class StatusMenuTest : public Desktop {
protected:
    void SetUp() override {
        platform.screens().connected = {screenNamed("LEFT", leftFrame), screenNamed("RIGHT", rightFrame)};
        start();
    }
    Menu menu() {
        return statusMenu(
            *manager, platform, [this] { ++openings; }, [this] { ++ends; });
    }

    int openings = 0;
    int ends = 0;
};

TEST_F(StatusMenuTest, listsEverythingInOrder) {
    EXPECT_EQ(lines(menu()),
              (Lines{"Settings…", "-", "✓ Dock on LEFT", "✓ Dock on RIGHT", "✓ Hide the macOS Dock",
                     "✓ Show RAM on Dock", "-", "Show Settings File", "Quit Quillary [q]"}));
}

TEST_F(StatusMenuTest, withoutScreensThereIsNoEntryForAny) {
    platform.screens().set({});
    EXPECT_EQ(lines(menu()), (Lines{"Settings…", "-", "✓ Hide the macOS Dock", "✓ Show RAM on Dock", "-",
                                    "Show Settings File", "Quit Quillary [q]"}));
}

TEST_F(StatusMenuTest, namesScreensAsTheyAreCalledNow) {
    auto screens = platform.screens().connected;
    screens[1].name = "Desk & Chair_2";
    platform.screens().set(screens);
    EXPECT_THAT(lines(menu()), Contains("✓ Dock on Desk & Chair_2"));
}

TEST_F(StatusMenuTest, switchesADockOffAndOnAgainWithTheSameItems) {
    configure([](DockConfig& config) { config.items = {"/Applications/Mail.app"}; }, rightKey);
    ASSERT_TRUE(choose(menu(), {"Dock on RIGHT"}));
    EXPECT_EQ(manager->panel(rightKey), nullptr);
    EXPECT_NE(manager->panel(leftKey), nullptr);
    EXPECT_THAT(lines(menu()), Contains("Dock on RIGHT"));
    EXPECT_FALSE(stored().dock(rightKey)->enabled);
    ASSERT_TRUE(choose(menu(), {"Dock on RIGHT"}));
    ASSERT_NE(manager->panel(rightKey), nullptr);
    EXPECT_THAT(lines(menu()), Contains("✓ Dock on RIGHT"));
    EXPECT_EQ(model(1).config().items, Lines{"/Applications/Mail.app"});
    EXPECT_TRUE(stored().dock(rightKey)->enabled);
}

TEST_F(StatusMenuTest, switchesInvertWhatHoldsWhenTheyAreChosen) {
    const Menu opened = menu();
    manager->setHideSystemDock(false);
    manager->setShowMemory(false);
    configure([](DockConfig& config) { config.enabled = false; });
    ASSERT_TRUE(choose(opened, {"Hide the macOS Dock"}));
    ASSERT_TRUE(choose(opened, {"Show RAM on Dock"}));
    ASSERT_TRUE(choose(opened, {"Dock on LEFT"}));
    EXPECT_TRUE(manager->hideSystemDock());
    EXPECT_TRUE(manager->showMemorySetting());
    EXPECT_TRUE(manager->settings().dock(leftKey)->enabled);
}

TEST_F(StatusMenuTest, aSwitchOfAScreenThatHasGoneStillWritesItsConfiguration) {
    const Menu opened = menu();
    platform.screens().set({screenNamed("LEFT", leftFrame)});
    ASSERT_TRUE(choose(opened, {"Dock on RIGHT"}));
    EXPECT_FALSE(stored().dock(rightKey)->enabled);
    EXPECT_EQ(manager->panels().size(), 1U);
}

TEST_F(StatusMenuTest, hidingSwitchedOffRestoresTheSystemDockAtOnce) {
    ASSERT_EQ(platform.systemDock().prefs, DockPrefs::hidden);
    ASSERT_TRUE(choose(menu(), {"Hide the macOS Dock"}));
    EXPECT_EQ(platform.systemDock().prefs, DockPrefs{});
    EXPECT_THAT(lines(menu()), Contains("Hide the macOS Dock"));
    EXPECT_FALSE(stored().hideSystemDock);
}

TEST_F(StatusMenuTest, memoryDisplayIsSwitchedAndSaved) {
    ASSERT_TRUE(choose(menu(), {"Show RAM on Dock"}));
    EXPECT_THAT(lines(menu()), Contains("Show RAM on Dock"));
    EXPECT_FALSE(manager->memory->running());
    EXPECT_FALSE(stored().showMemory);
}

TEST_F(StatusMenuTest, showsTheSettingsFileWhereItStands) {
    ASSERT_TRUE(choose(menu(), {"Show Settings File"}));
    EXPECT_EQ(platform.workspace().calls, Lines{"reveal " + manager->settingsURL.string()});
}

TEST_F(StatusMenuTest, opensTheSettings) {
    ASSERT_TRUE(choose(menu(), {"Settings…"}));
    EXPECT_EQ(openings, 1);
    EXPECT_EQ(ends, 0);
}

TEST_F(StatusMenuTest, quitAsksForTheEnd) {
    ASSERT_TRUE(choose(menu(), {"Quit Quillary"}));
    EXPECT_EQ(ends, 1);
}

} // namespace
} // namespace quillary::test
