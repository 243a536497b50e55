#include "app/AppDelegate.h"

#include "tests/app/Fixture.h"

namespace quillary::test {
namespace {

TEST(AppDelegate, launchingPutsDocksOnTheScreens) {
    FakePlatform platform;
    platform.screens().connected = {screenNamed("LEFT", leftFrame)};
    AppDelegate delegate(platform);
    EXPECT_EQ(delegate.manager(), nullptr);
    delegate.applicationDidFinishLaunching();
    ASSERT_NE(delegate.manager(), nullptr);
    EXPECT_EQ(platform.windows.size(), 1U);
}

TEST(AppDelegate, terminatingPutsTheSystemDockBackOnce) {
    FakePlatform platform;
    AppDelegate delegate(platform);
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(platform.systemDock().prefs, DockPrefs::hidden);
    platform.systemDock().calls.clear();
    delegate.applicationWillTerminate();
    EXPECT_EQ(platform.systemDock().prefs, DockPrefs{});
    delegate.applicationWillTerminate();
    EXPECT_EQ(platform.systemDock().calls, (std::vector<std::string>{"write", "synchronise", "restart"}));
    EXPECT_TRUE(delegate.manager()->settings().hideSystemDock);
}

TEST(AppDelegate, terminatingBeforeLaunchingIsHarmless) {
    FakePlatform platform;
    AppDelegate delegate(platform);
    delegate.applicationWillTerminate();
    EXPECT_TRUE(platform.systemDock().calls.empty());
}

} // namespace
} // namespace quillary::test
