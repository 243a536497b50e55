#include "tests/app/Fixture.h"
#include "tests/core/Succeeded.h"

#include <QFile>

#include <fstream>

namespace quillary::test {
namespace {

const std::string finder = "/System/Library/CoreServices/Finder.app";
const std::string mail = "/Applications/Mail.app";

class DockManagerTest : public Desktop {
protected:
    void connectBoth() {
        platform.screens().set({screenNamed("LEFT", leftFrame), screenNamed("RIGHT", rightFrame)});
    }
    void storeFirst(const Settings& settings) const {
        const SettingsStore store(platform.applicationSupportDirectory() / "Quillary" / "settings.json");
        ASSERT_TRUE(succeeded(store.save(settings)));
    }
    /// Makes every further save fail: a folder cannot be replaced by a file.
    void breakSaving() const {
        std::filesystem::remove_all(manager->settingsURL);
        std::filesystem::create_directories(manager->settingsURL / "in the way");
    }
    [[nodiscard]] std::vector<std::string> keys() const {
        std::vector<std::string> result;
        for (const auto& entry : manager->models()) {
            result.push_back(entry->key);
        }
        return result;
    }
};

TEST_F(DockManagerTest, aScreensKeyIsItsUuidOrItsNumber) {
    EXPECT_EQ(DockManager::screenKey({.displayNumber = 7, .uuid = "37D8832A-2D66-02CA-B9F7-8F30A301B230"}),
              "37D8832A-2D66-02CA-B9F7-8F30A301B230");
    EXPECT_EQ(DockManager::screenKey({.displayNumber = 4294967295U}), "4294967295");
    EXPECT_EQ(DockManager::screenKey({}), "0");
}

TEST_F(DockManagerTest, theFirstStartSeedsSavesAndShowsOneDock) {
    platform.systemDock().pinned = {finder, mail};
    start();
    ASSERT_EQ(manager->models().size(), 1U);
    EXPECT_EQ(model().config(), DockConfig(leftKey, "LEFT", {finder, mail}));
    EXPECT_EQ(model().screenName(), "LEFT");
    EXPECT_EQ(manager->panels().size(), 1U);
    EXPECT_TRUE(window().visible);
    EXPECT_EQ(stored().docks, manager->settings().docks);
    EXPECT_EQ(manager->settingsURL, platform.applicationSupportDirectory() / "Quillary" / "settings.json");
}

TEST_F(DockManagerTest, settingsAreTakenFromTheFile) {
    Settings settings;
    settings.docks = {DockConfig(leftKey, "old name", {mail})};
    settings.docks[0].enabled = false;
    settings.hideSystemDock = false;
    settings.showMemory = false;
    storeFirst(settings);
    start();
    EXPECT_EQ(manager->settings(), settings);
    EXPECT_FALSE(manager->hideSystemDock());
    EXPECT_FALSE(manager->showMemorySetting());
    EXPECT_FALSE(manager->memory->running());
    EXPECT_FALSE(model().showMemory());
    EXPECT_TRUE(platform.windows.empty());
    EXPECT_EQ(model().screenName(), "LEFT");
    EXPECT_EQ(model().config().screenName, "old name");
}

TEST_F(DockManagerTest, memoryFollowsTheSettingFromTheStart) {
    start();
    EXPECT_TRUE(manager->memory->running());
    EXPECT_TRUE(model().showMemory());
}

TEST_F(DockManagerTest, seedsHoldNoRepeatsAndNothingThatIsNotText) {
    platform.systemDock().pinned = {finder, "/bad\xff", mail, finder};
    start();
    EXPECT_EQ(model().config().items, (std::vector<std::string>{finder, mail}));
    EXPECT_EQ(stored().docks[0].items, model().config().items);
}

TEST_F(DockManagerTest, withMemoryOffEveryModelIsTold) {
    Settings settings;
    settings.showMemory = false;
    storeFirst(settings);
    platform.screens().connected = {screenNamed("LEFT", leftFrame), screenNamed("RIGHT", rightFrame)};
    start();
    EXPECT_FALSE(model(0).showMemory());
    EXPECT_FALSE(model(1).showMemory());
}

TEST_F(DockManagerTest, aSecondScreenIsSeededFromTheSystemDockAtThatMoment) {
    startWith({finder});
    model().add({mail});
    platform.systemDock().pinned = {finder, "/Applications/New.app"};
    connectBoth();
    EXPECT_EQ(keys(), (std::vector{leftKey, rightKey}));
    EXPECT_EQ(model(1).config().items, (std::vector<std::string>{finder, "/Applications/New.app"}));
    EXPECT_EQ(stored().docks.size(), 2U);
}

TEST_F(DockManagerTest, aScreenThatReturnsFindsItsDock) {
    connectBoth();
    start();
    manager->update(rightKey, [](DockConfig& config) {
        config.items = {mail};
        config.edge = DockEdge::left;
    });
    platform.screens().set({screenNamed("LEFT", leftFrame)});
    EXPECT_EQ(keys(), std::vector{leftKey});
    EXPECT_EQ(manager->panels().size(), 1U);
    EXPECT_EQ(stored().docks.size(), 2U);
    platform.systemDock().pinned = {"/Applications/Other.app"};
    connectBoth();
    EXPECT_EQ(model(1).config().items, std::vector<std::string>{mail});
    EXPECT_EQ(model(1).config().edge, DockEdge::left);
    EXPECT_EQ(platform.windows.size(), 2U);
}

TEST_F(DockManagerTest, rebuildingReusesModelsAndPanelsAndNeverPresentsThemAgain) {
    start();
    platform.scheduler().advance(2);
    const DockModel* before = &model();
    const DockPanel* panelBefore = &panel();
    platform.screens().set({screenNamed("LEFT", QRectF(0, 0, 1920, 1080))});
    EXPECT_EQ(&model(), before);
    EXPECT_EQ(&panel(), panelBefore);
    EXPECT_EQ(platform.windowsMade, 1);
    EXPECT_EQ(window().ordersFront, 1);
    EXPECT_FALSE(model().hidden());
    EXPECT_EQ(window().placed.bottom(), 1079);
    EXPECT_EQ(panel().targetScreen().frame.width(), 1920);
}

TEST_F(DockManagerTest, theOrderOfModelsIsThatOfTheScreens) {
    connectBoth();
    start();
    platform.screens().set({screenNamed("RIGHT", rightFrame), screenNamed("LEFT", leftFrame)});
    EXPECT_EQ(keys(), (std::vector{rightKey, leftKey}));
}

TEST_F(DockManagerTest, everyScreenChangeRebuilds) {
    start();
    const Count rebuilt(manager.get(), &DockManager::modelsChanged);
    connectBoth();
    connectBoth();
    EXPECT_EQ(rebuilt.times, 2);
}

TEST_F(DockManagerTest, noScreensAndBack) {
    connectBoth();
    start();
    platform.screens().set({});
    EXPECT_TRUE(manager->models().empty());
    EXPECT_TRUE(platform.windows.empty());
    platform.pointer().moveTo(QPointF(10, 10));
    connectBoth();
    EXPECT_EQ(platform.windows.size(), 2U);
}

TEST_F(DockManagerTest, twoScreensWithOneKeyShareOneDock) {
    platform.screens().connected = {{.name = "A", .frame = leftFrame, .visibleFrame = leftFrame},
                                    {.name = "B", .frame = rightFrame, .visibleFrame = rightFrame}};
    start();
    EXPECT_EQ(keys(), (std::vector<std::string>{"0", "0"}));
    EXPECT_EQ(platform.windows.size(), 1U);
    EXPECT_EQ(stored().docks.size(), 1U);
    platform.screens().set({});
    EXPECT_TRUE(platform.windows.empty());
}

TEST_F(DockManagerTest, changingAnOptionSavesAndTellsTheModelWithoutRebuilding) {
    start();
    const Count rebuilt(manager.get(), &DockManager::modelsChanged);
    const Count told(&model(), &DockModel::configChanged);
    configure([](DockConfig& config) { config.iconSize = 64; });
    EXPECT_DOUBLE_EQ(model().config().iconSize, 64);
    EXPECT_DOUBLE_EQ(stored().docks[0].iconSize, 64);
    EXPECT_EQ(rebuilt.times, 0);
    EXPECT_EQ(told.times, 1);
}

TEST_F(DockManagerTest, aChangeThatChangesNothingIsStillToldAndSaved) {
    start();
    std::filesystem::remove(manager->settingsURL);
    const Count told(&model(), &DockModel::configChanged);
    configure([](DockConfig&) {});
    EXPECT_EQ(told.times, 1);
    EXPECT_TRUE(std::filesystem::exists(manager->settingsURL));
}

TEST_F(DockManagerTest, switchingADockOffAndOnClosesAndOpensItsPanelAlone) {
    connectBoth();
    start();
    platform.scheduler().advance(2);
    const Count rebuilt(manager.get(), &DockManager::modelsChanged);
    configure([](DockConfig& config) { config.enabled = false; });
    EXPECT_EQ(rebuilt.times, 1);
    EXPECT_EQ(keys(), (std::vector{leftKey, rightKey}));
    EXPECT_EQ(manager->panel(leftKey), nullptr);
    EXPECT_NE(manager->panel(rightKey), nullptr);
    configure([](DockConfig& config) { config.enabled = true; });
    EXPECT_NE(manager->panel(leftKey), nullptr);
    EXPECT_EQ(platform.windowsMade, 3);
}

TEST_F(DockManagerTest, anUnknownKeyAddsPushesAndRebuildsNothing) {
    start();
    const Count rebuilt(manager.get(), &DockManager::modelsChanged);
    const Count told(&model(), &DockModel::configChanged);
    const Settings before = manager->settings();
    manager->update("nobody", [](DockConfig& config) { config.enabled = false; });
    EXPECT_EQ(manager->settings(), before);
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(rebuilt.times, 0);
    EXPECT_EQ(told.times, 0);
}

TEST_F(DockManagerTest, theConfigurationOfADisconnectedScreenCanBeChanged) {
    connectBoth();
    start();
    platform.screens().set({screenNamed("LEFT", leftFrame)});
    manager->update(rightKey, [](DockConfig& config) { config.iconSize = 72; });
    EXPECT_DOUBLE_EQ(stored().docks[1].iconSize, 72);
}

TEST_F(DockManagerTest, aFailedSaveIsOneLineAndTheSettingsStay) {
    start();
    breakSaving();
    configure([](DockConfig& config) { config.iconSize = 64; });
    ASSERT_EQ(platform.log().lines.size(), 1U);
    const std::string prefix = "Quillary: save failed ";
    EXPECT_EQ(platform.log().lines[0].substr(0, prefix.size()), prefix);
    EXPECT_GT(platform.log().lines[0].size(), prefix.size());
    EXPECT_DOUBLE_EQ(model().config().iconSize, 64);
    std::filesystem::remove_all(manager->settingsURL);
    configure([](DockConfig& config) { config.edge = DockEdge::top; });
    EXPECT_DOUBLE_EQ(stored().docks[0].iconSize, 64);
    EXPECT_EQ(platform.log().lines.size(), 1U);
}

TEST_F(DockManagerTest, seedingOnAFullDiskStillGivesADock) {
    std::filesystem::create_directories(platform.applicationSupportDirectory());
    std::ofstream(platform.applicationSupportDirectory() / "Quillary") << "a file in the way";
    start();
    EXPECT_EQ(platform.windows.size(), 1U);
    ASSERT_FALSE(platform.log().lines.empty());
    EXPECT_EQ(platform.log().lines[0].find("Quillary: save failed "), 0U);
}

TEST_F(DockManagerTest, onboardingIsSaved) {
    start();
    EXPECT_FALSE(manager->settings().onboarded);
    manager->markOnboarded();
    EXPECT_TRUE(manager->settings().onboarded);
    EXPECT_TRUE(stored().onboarded);
}

TEST_F(DockManagerTest, showingMemoryIsSavedAndReachesMonitorAndModels) {
    connectBoth();
    start();
    const Count published(manager.get(), &DockManager::showMemorySettingChanged);
    manager->setShowMemory(false);
    EXPECT_FALSE(stored().showMemory);
    EXPECT_FALSE(manager->showMemorySetting());
    EXPECT_FALSE(manager->memory->running());
    EXPECT_FALSE(model(0).showMemory());
    EXPECT_FALSE(model(1).showMemory());
    manager->setShowMemory(true);
    EXPECT_TRUE(model(1).showMemory());
    EXPECT_EQ(published.times, 2);
}

TEST_F(DockManagerTest, modelsAreToldOfMemoryOnlyWhenItDiffers) {
    start();
    const Count told(&model(), &DockModel::showMemoryChanged);
    manager->setShowMemory(true);
    EXPECT_EQ(told.times, 0);
}

TEST_F(DockManagerTest, thePointerReachesEveryPanel) {
    connectBoth();
    start();
    platform.scheduler().advance(2);
    platform.pointer().moveTo(QPointF(640, 880));
    EXPECT_TRUE(model(0).mouse().has_value());
    EXPECT_FALSE(model(1).mouse().has_value());
    platform.pointer().moveTo(QPointF(1280 + 560, 780));
    EXPECT_FALSE(model(0).mouse().has_value());
    EXPECT_TRUE(model(1).mouse().has_value());
}

TEST_F(DockManagerTest, aManagerThatIsGoneHearsNothing) {
    start();
    manager.reset();
    connectBoth();
    platform.pointer().moveTo(QPointF(640, 880));
    EXPECT_EQ(platform.scheduler().pending(), 0U);
}

} // namespace
} // namespace quillary::test
