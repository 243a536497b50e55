#include "platform/linux/entries/DesktopEntries.h"
#include "platform/linux/systemdock/DesktopFavourites.h"
#include "platform/linux/systemdock/LinuxSystemDockPreferences.h"
#include "platform/linux/systemdock/XfceLaunchers.h"
#include "tests/fake/ManualScheduler.h"
#include "tests/linux/LinesLog.h"
#include "tests/linux/World.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillary::test {

namespace {

using Strings = std::vector<std::string>;

class PinnedItemsTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        ::unsetenv("XDG_CURRENT_DESKTOP");
        files = install("files.desktop", "Name=Files\nExec=sh files %f\nMimeType=inode/directory;");
        browser =
            install("browser.desktop", "Name=Browser\nExec=sh browser %u\nMimeType=x-scheme-handler/http;");
        editor = install("editor.desktop", "Name=Editor\nExec=sh editor %f\nMimeType=text/plain;");
        associate({{"inode/directory", "files.desktop"},
                   {"x-scheme-handler/http", "browser.desktop"},
                   {"text/plain", "editor.desktop"}});
    }

    void TearDown() override { ::unsetenv("XDG_CURRENT_DESKTOP"); }

    std::string files;
    std::string browser;
    std::string editor;
    ManualScheduler scheduler;
    const DesktopEntries entries{scheduler};
    LinesLog log;
    const LinuxSystemDockPreferences preferences{entries, log};
};

TEST_F(PinnedItemsTest, countsAsHiddenAndStaysSo) {
    LinuxSystemDockPreferences dock(entries, log);
    dock.write(DockPrefs::hidden);
    dock.synchronise();
    dock.restart();
    EXPECT_EQ(dock.read(), (DockPrefs{true, 1000.0}));
}

TEST_F(PinnedItemsTest, macDockFileStandsBeforeAll) {
    writeFile(World::home() / "Library/Preferences/com.apple.dock.plist",
              "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>persistent-apps</key><array><dict>"
              "<key>tile-data</key><dict><key>file-data</key><dict><key>_CFURLString</key>"
              "<string>file:///Applications/Mail.app/</string></dict></dict></dict></array></dict></plist>");
    EXPECT_EQ(preferences.pinnedItems(),
              (Strings{"/System/Library/CoreServices/Finder.app", "/Applications/Mail.app"}));
}

TEST_F(PinnedItemsTest, unknownDesktopGivesTheDefaultApplications) {
    const auto terminal =
        install("terminal.desktop", "Name=Terminal\nExec=sh t\nCategories=System;TerminalEmulator;");
    const auto settings = install("systemsettings.desktop", "Name=Settings\nExec=sh s");
    EXPECT_EQ(preferences.pinnedItems(), (Strings{files, browser, terminal, editor, settings}));
}

TEST_F(PinnedItemsTest, whatIsMissingIsLeftOutAndNothingStandsTwice) {
    std::filesystem::remove(browser);
    associate({{"inode/directory", "files.desktop"},
               {"text/plain", "files.desktop"},
               {"x-scheme-handler/http", "gone.desktop"}});
    EXPECT_EQ(preferences.pinnedItems(), (Strings{files}));
}

TEST_F(PinnedItemsTest, plasmaGivesItsTaskManagersLaunchers) {
    ::setenv("XDG_CURRENT_DESKTOP", "KDE", 1);
    writeFile(World::config() / "plasma-org.kde.plasma.desktop-appletsrc",
              "[Containments][2]\nplugin=org.kde.panel\n\n[Containments][2][Applets][5]\nimmutability=1\n"
              "plugin=org.kde.plasma.icontasks\n\n[Containments][2][Applets][5][Configuration][General]\n"
              "launchers=applications:editor.desktop,preferred://filemanager,preferred://browser,"
              "applications:gone.desktop,file://" +
                  files + "\n");
    EXPECT_EQ(preferences.pinnedItems(), (Strings{files, editor, browser}));
}

TEST_F(PinnedItemsTest, pathsThatAreNoUtf8AreLeftOut) {
    ::setenv("XDG_CURRENT_DESKTOP", "KDE", 1);
    writeFile(World::home() / "bad-\xff.desktop", "[Desktop Entry]\nType=Application\nName=B\nExec=b\n");
    writeFile(World::home() / "good-ü.desktop", "[Desktop Entry]\nType=Application\nName=G\nExec=g\n");
    const auto head = "file://" + World::home().string();
    writeFile(World::config() / "plasma-org.kde.plasma.desktop-appletsrc",
              "[C][1]\nplugin=org.kde.plasma.icontasks\n[C][1][Configuration][General]\nlaunchers=" + head +
                  "/bad-%FF.desktop," + World::home().string() + "/bad-\xff.desktop," + head +
                  "/good-%C3%BC.desktop\n");
    EXPECT_EQ(preferences.pinnedItems(), (Strings{files, (World::home() / "good-ü.desktop").string()}));
}

TEST_F(PinnedItemsTest, plasmaThatNobodyChangedGivesItsOwnDefaults) {
    ::setenv("XDG_CURRENT_DESKTOP", "KDE", 1);
    const auto settings = install("systemsettings.desktop", "Name=Settings\nExec=sh s");
    EXPECT_EQ(preferences.pinnedItems(), (Strings{files, browser, settings}));
}

TEST_F(PinnedItemsTest, xfceGivesItsPanelsLaunchersInOrder) {
    ::setenv("XDG_CURRENT_DESKTOP", "XFCE", 1);
    writeFile(World::config() / "xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml",
              R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="panels" type="array"><value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/><value type="int" value="9"/><value type="int" value="7"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="applicationsmenu"/>
    <property name="plugin-7" type="string" value="launcher">
      <property name="items" type="array"><value type="string" value="17.desktop"/></property>
    </property>
    <property name="plugin-9" type="string" value="launcher">
      <property name="items" type="array">
        <value type="string" value="16.desktop"/><value type="string" value="../../escape.desktop"/>
      </property>
    </property>
  </property>
</channel>)");
    writeFile(World::config() / "xfce4/panel/launcher-9/16.desktop",
              "[Desktop Entry]\nType=Application\nName=B\nExec=b\nX-XFCE-Source=file://" + browser + "\n");
    writeFile(World::config() / "xfce4/escape.desktop",
              "[Desktop Entry]\nType=Application\nName=E\nExec=e\n");
    const auto own = World::config() / "xfce4/panel/launcher-7/17.desktop";
    writeFile(own, "[Desktop Entry]\nType=Application\nName=Own\nExec=own\n");
    EXPECT_EQ(preferences.pinnedItems(), (Strings{files, browser, own.string()}));
}

TEST_F(PinnedItemsTest, xfceWithoutSettingsGivesTheDefaultApplications) {
    ::setenv("XDG_CURRENT_DESKTOP", "XFCE", 1);
    EXPECT_EQ(preferences.pinnedItems(), (Strings{files, browser, editor}));
}

TEST(DesktopFavourites, damagedXfceChannelGivesNothingBad) {
    EXPECT_EQ(XfceLaunchers::entryFiles(""), Strings());
    EXPECT_EQ(XfceLaunchers::entryFiles("<channel><property name=\"panels\">"), Strings());
    std::string deep = "<channel>";
    for (int level = 0; level < 100000; ++level) {
        deep += "<property name=\"p\">";
    }
    EXPECT_EQ(XfceLaunchers::entryFiles(deep), Strings());
}

TEST(DesktopFavourites, plasmaListsAreSplitAtUnescapedCommas) {
    const std::string head = "[C][1]\nplugin=org.kde.plasma.taskmanager\n[C][1][Configuration][General]\n";
    EXPECT_EQ(DesktopFavourites::ofPlasma(head + "launchers=a\\,b,,c"), (Strings{"a,b", "c"}));
    EXPECT_EQ(DesktopFavourites::ofPlasma(head + "launchers="), (Strings{}));
    EXPECT_EQ(DesktopFavourites::ofPlasma(head), std::nullopt);
    EXPECT_EQ(DesktopFavourites::ofPlasma(
                  "[C][1]\nplugin=org.kde.kickoff\n[C][1][Configuration][General]\nlaunchers=a"),
              std::nullopt);
    EXPECT_EQ(DesktopFavourites::ofPlasma(""), std::nullopt);
}

} // namespace

} // namespace quillary::test
