#include "app/AppDelegate.h"
#include "app/settings/SettingsWindow.h"
#include "tests/app/Fixture.h"
#include "tests/app/MenuText.h"

#include <QLabel>
#include <QWidget>

namespace quillary::test {
namespace {

class AppDelegateTest : public testing::Test {
protected:
    AppDelegateTest() { platform.screens().connected = {screenNamed("LEFT", leftFrame)}; }

    Settings stored() { return SettingsStore(delegate.manager()->settingsURL).load(); }
    static QWidget* window(const AppDelegate& delegate) { return delegate.settings()->window(); }
    static bool greets(const AppDelegate& delegate) {
        for (const auto* label : window(delegate)->findChildren<QLabel*>()) {
            if (label->text() == QStringLiteral("Welcome — every screen now has its own Dock.")) {
                return true;
            }
        }
        return false;
    }

    FakePlatform platform;
    AppDelegate delegate{platform};
};

TEST_F(AppDelegateTest, launchingPutsDocksOnTheScreens) {
    EXPECT_EQ(delegate.manager(), nullptr);
    delegate.applicationDidFinishLaunching();
    ASSERT_NE(delegate.manager(), nullptr);
    EXPECT_EQ(platform.windows.size(), 1U);
}

TEST_F(AppDelegateTest, theStatusItemHasASymbolANameAndAMenuMadeAtEachOpening) {
    EXPECT_EQ(platform.statusItem, nullptr);
    EXPECT_TRUE(delegate.menuNeedsUpdate().empty());
    delegate.applicationDidFinishLaunching();
    ASSERT_NE(platform.statusItem, nullptr);
    EXPECT_EQ(platform.statusItem->description, "Quillary");
    EXPECT_FALSE(platform.statusItem->symbol.isNull());
    EXPECT_EQ(lines(platform.statusItem->menuNeedsUpdate()).at(2), "✓ Dock on LEFT");
    platform.screens().set({screenNamed("RIGHT", rightFrame)});
    EXPECT_EQ(lines(platform.statusItem->menuNeedsUpdate()).at(2), "✓ Dock on RIGHT");
}

TEST_F(AppDelegateTest, quittingFromTheMenuAsksForTheEnd) {
    delegate.applicationDidFinishLaunching();
    const Count ends(&delegate, &AppDelegate::terminate);
    ASSERT_TRUE(choose(platform.statusItem->menuNeedsUpdate(), {"Quit Quillary"}));
    EXPECT_EQ(ends.times, 1);
}

TEST_F(AppDelegateTest, theFirstRunGreetsOnceAfterNotingIt) {
    delegate.applicationDidFinishLaunching();
    ASSERT_NE(window(delegate), nullptr);
    EXPECT_TRUE(window(delegate)->isVisible());
    EXPECT_TRUE(greets(delegate));
    EXPECT_TRUE(stored().onboarded);
}

TEST_F(AppDelegateTest, theSecondRunDoesNotGreet) {
    { AppDelegate(platform).applicationDidFinishLaunching(); }
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(window(delegate), nullptr);
}

TEST_F(AppDelegateTest, openingItAgainShowsTheSettings) {
    { AppDelegate(platform).applicationDidFinishLaunching(); }
    delegate.applicationDidFinishLaunching();
    Q_EMIT platform.instance().reopened();
    ASSERT_NE(window(delegate), nullptr);
    EXPECT_TRUE(window(delegate)->isVisible());
    EXPECT_FALSE(greets(delegate));
    EXPECT_FALSE(delegate.applicationShouldHandleReopen(true));
}

TEST_F(AppDelegateTest, openingItAgainBeforeLaunchingIsHarmless) {
    Q_EMIT platform.instance().reopened();
    EXPECT_EQ(delegate.settings(), nullptr);
}

TEST_F(AppDelegateTest, bothMenusShowTheSettings) {
    { AppDelegate(platform).applicationDidFinishLaunching(); }
    delegate.applicationDidFinishLaunching();
    ASSERT_TRUE(choose(delegate.manager()->panel(leftKey)->buildMenu(), {"Settings…"}));
    ASSERT_NE(window(delegate), nullptr);
    EXPECT_TRUE(window(delegate)->isVisible());
    EXPECT_FALSE(greets(delegate));
    window(delegate)->close();
    ASSERT_TRUE(choose(platform.statusItem->menuNeedsUpdate(), {"Settings…"}));
    EXPECT_TRUE(window(delegate)->isVisible());
}

TEST_F(AppDelegateTest, closingTheSettingsHidesThemAndTheSameComeBack) {
    delegate.applicationDidFinishLaunching();
    QWidget* const first = window(delegate);
    EXPECT_TRUE(first->close());
    EXPECT_FALSE(first->isVisible());
    ASSERT_TRUE(choose(platform.statusItem->menuNeedsUpdate(), {"Settings…"}));
    EXPECT_EQ(window(delegate), first);
    EXPECT_TRUE(first->isVisible());
    // What it was made with stays.
    EXPECT_TRUE(greets(delegate));
    EXPECT_EQ(first->windowTitle(), QStringLiteral("Quillary Settings"));
    EXPECT_EQ(first->size(), QSize(560, 640));
}

TEST_F(AppDelegateTest, terminatingPutsTheSystemDockBackOnce) {
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(platform.systemDock().prefs, DockPrefs::hidden);
    platform.systemDock().calls.clear();
    delegate.applicationWillTerminate();
    EXPECT_EQ(platform.systemDock().prefs, DockPrefs{});
    delegate.applicationWillTerminate();
    EXPECT_EQ(platform.systemDock().calls, (std::vector<std::string>{"write", "synchronise", "restart"}));
    EXPECT_TRUE(delegate.manager()->settings().hideSystemDock);
}

TEST_F(AppDelegateTest, terminatingBeforeLaunchingIsHarmless) {
    delegate.applicationWillTerminate();
    EXPECT_TRUE(platform.systemDock().calls.empty());
}

} // namespace
} // namespace quillary::test
