#include "tests/app/Fixture.h"
#include "tests/core/Succeeded.h"

namespace quillary::test {
namespace {

using Calls = std::vector<std::string>;
const Calls written{"write", "synchronise", "restart"};

class SystemDockTest : public Desktop {
protected:
    FakeSystemDock& dock = platform.systemDock();

    void startSaved(bool hide, std::optional<DockPrefs> saved) {
        Settings settings;
        settings.hideSystemDock = hide;
        settings.savedSystemDock = saved;
        const SettingsStore store(platform.applicationSupportDirectory() / "Quillary" / "settings.json");
        ASSERT_TRUE(succeeded(store.save(settings)));
        start();
    }
};

TEST_F(SystemDockTest, theFirstStartTucksAnUntouchedDockAway) {
    start();
    EXPECT_EQ(dock.prefs, (DockPrefs{true, 1000.0}));
    EXPECT_EQ(dock.calls, written);
    EXPECT_EQ(stored().savedSystemDock, DockPrefs{});
}

TEST_F(SystemDockTest, quittingAfterThatRemovesBothValuesAgain) {
    start();
    dock.calls.clear();
    manager->applySystemDock(false);
    EXPECT_EQ(dock.prefs, DockPrefs{});
    EXPECT_EQ(dock.calls, written);
    EXPECT_EQ(stored().savedSystemDock, std::nullopt);
    EXPECT_TRUE(stored().hideSystemDock);
}

TEST_F(SystemDockTest, theUsersOwnValuesComeBack) {
    dock.prefs = {true, 0.5};
    start();
    EXPECT_EQ(dock.prefs, (DockPrefs{true, 1000.0}));
    EXPECT_EQ(stored().savedSystemDock, (DockPrefs{true, 0.5}));
    manager->applySystemDock(false);
    EXPECT_EQ(dock.prefs, (DockPrefs{true, 0.5}));
}

TEST_F(SystemDockTest, aStartWhileHiddenKeepsWhatWasRemembered) {
    dock.prefs = DockPrefs::hidden;
    startSaved(true, DockPrefs{false, std::nullopt});
    EXPECT_TRUE(dock.calls.empty());
    EXPECT_EQ(stored().savedSystemDock, (DockPrefs{false, std::nullopt}));
}

TEST_F(SystemDockTest, valuesChangedByHandMeanwhileAreLeftAlone) {
    start();
    dock.calls.clear();
    dock.prefs.delay = 2.0;
    manager->setHideSystemDock(false);
    EXPECT_TRUE(dock.calls.empty());
    EXPECT_EQ(dock.prefs, (DockPrefs{true, 2.0}));
    EXPECT_EQ(stored().savedSystemDock, std::nullopt);
    EXPECT_FALSE(stored().hideSystemDock);
}

TEST_F(SystemDockTest, showingADockThatIsNotHiddenOnlyForgets) {
    dock.prefs = {false, 1000.0};
    startSaved(false, DockPrefs{true, 3.0});
    EXPECT_TRUE(dock.calls.empty());
    EXPECT_EQ(stored().savedSystemDock, std::nullopt);
}

TEST_F(SystemDockTest, aHiddenDockWithNothingRememberedLosesBothValues) {
    dock.prefs = DockPrefs::hidden;
    startSaved(false, std::nullopt);
    EXPECT_EQ(dock.calls, written);
    EXPECT_EQ(dock.prefs, DockPrefs{});
    EXPECT_EQ(stored().savedSystemDock, std::nullopt);
}

TEST_F(SystemDockTest, switchingIsPublishedSavedAndApplied) {
    startSaved(false, std::nullopt);
    const Count published(manager.get(), &DockManager::hideSystemDockChanged);
    manager->setHideSystemDock(true);
    EXPECT_EQ(published.times, 1);
    EXPECT_TRUE(manager->hideSystemDock());
    EXPECT_EQ(dock.prefs, DockPrefs::hidden);
    manager->setHideSystemDock(false);
    EXPECT_EQ(dock.prefs, DockPrefs{});
}

TEST_F(SystemDockTest, everythingIsRebuilt1200MillisecondsAfterTheRestart) {
    start();
    const Count rebuilt(manager.get(), &DockManager::modelsChanged);
    platform.scheduler().advance(1.199);
    EXPECT_EQ(rebuilt.times, 0);
    platform.scheduler().advance(0.001);
    EXPECT_EQ(rebuilt.times, 1);
    platform.scheduler().advance(10);
    EXPECT_EQ(rebuilt.times, 1);
}

TEST_F(SystemDockTest, everyRestartIsFollowedByARebuildOfItsOwn) {
    start();
    const Count rebuilt(manager.get(), &DockManager::modelsChanged);
    platform.scheduler().advance(0.5);
    manager->setHideSystemDock(false);
    platform.scheduler().advance(0.5);
    manager->setHideSystemDock(true);
    platform.scheduler().advance(0.199);
    EXPECT_EQ(rebuilt.times, 0);
    platform.scheduler().advance(0.001);
    EXPECT_EQ(rebuilt.times, 1);
    platform.scheduler().advance(0.5);
    EXPECT_EQ(rebuilt.times, 2);
    platform.scheduler().advance(0.5);
    EXPECT_EQ(rebuilt.times, 3);
    platform.scheduler().advance(10);
    EXPECT_EQ(rebuilt.times, 3);
}

TEST_F(SystemDockTest, withoutARestartNothingIsRebuilt) {
    dock.prefs = DockPrefs::hidden;
    start();
    const Count rebuilt(manager.get(), &DockManager::modelsChanged);
    platform.scheduler().advance(10);
    EXPECT_EQ(rebuilt.times, 0);
}

TEST_F(SystemDockTest, aRebuildThatMeetsAProgramThatQuitsDoesNothing) {
    start();
    manager.reset();
    platform.scheduler().advance(10);
    EXPECT_EQ(platform.scheduler().pending(), 0U);
}

TEST_F(SystemDockTest, aFailureToRememberIsNotLogged) {
    start();
    std::filesystem::remove_all(manager->settingsURL);
    std::filesystem::create_directories(manager->settingsURL / "in the way");
    manager->applySystemDock(false);
    EXPECT_TRUE(platform.log().lines.empty());
    EXPECT_EQ(dock.prefs, DockPrefs{});
}

} // namespace
} // namespace quillary::test
