#include "platform/linux/CurrentDesktop.h"
#include "platform/linux/entries/DesktopEntries.h"
#include "platform/linux/systemdock/DesktopDock.h"
#include "platform/linux/systemdock/LinuxSystemDockPreferences.h"
#include "tests/fake/ManualScheduler.h"
#include "tests/linux/LinesLog.h"
#include "tests/linux/World.h"
#include "tests/linux/systemdock/HiderRun.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillary::test {

namespace {

class DesktopDockTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        ::unsetenv("XDG_CURRENT_DESKTOP");
    }
    void TearDown() override { ::unsetenv("XDG_CURRENT_DESKTOP"); }
    [[nodiscard]] bool isKnown(std::string_view desktop) {
        return DesktopDock::of(CurrentDesktop(desktop), folder, log) != nullptr;
    }

    const std::filesystem::path folder = World::config() / "Quillary";
    LinesLog log;
    ManualScheduler scheduler;
    const DesktopEntries entries{scheduler};
};

TEST_F(DesktopDockTest, desktopsAreKnownByTheirWholeNames) {
    EXPECT_TRUE(isKnown("XFCE"));
    EXPECT_TRUE(isKnown("KDE"));
    EXPECT_TRUE(isKnown("X-Some:XFCE"));
    EXPECT_FALSE(isKnown(""));
    EXPECT_FALSE(isKnown("XFCE4"));
    EXPECT_FALSE(isKnown("MATE"));
    EXPECT_FALSE(isKnown("LXQt"));
    EXPECT_FALSE(isKnown(":"));
}

TEST_F(DesktopDockTest, gnomeWithoutTheExtensionHasNoDock) {
    EXPECT_FALSE(isKnown("GNOME"));
}

TEST_F(DesktopDockTest, otherDesktopsCountAsHiddenAndKeepNothing) {
    ::setenv("XDG_CURRENT_DESKTOP", "MATE", 1);
    LinuxSystemDockPreferences dock(entries, log, folder);
    EXPECT_EQ(dock.read(), (DockPrefs{true, 1000.0}));
    dock.write(DockPrefs{});
    dock.synchronise();
    dock.restart();
    EXPECT_EQ(dock.read(), (DockPrefs{true, 1000.0}));
    EXPECT_FALSE(std::filesystem::exists(folder));
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(DesktopDockTest, aKnownDesktopWithoutASessionBusIsLeftAloneSilently) {
    for (const char* desktop : {"XFCE", "KDE"}) {
        ::setenv("XDG_CURRENT_DESKTOP", desktop, 1);
        LinuxSystemDockPreferences dock(entries, log, folder);
        EXPECT_EQ(dock.read(), away) << desktop;
        dock.write(away);
        dock.write(DockPrefs{});
        EXPECT_FALSE(std::filesystem::exists(folder)) << desktop;
        EXPECT_TRUE(log.lines.empty()) << desktop;
    }
}

} // namespace

} // namespace quillary::test
