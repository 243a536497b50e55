#include "platform/linux/CurrentDesktop.h"
#include "platform/linux/icons/IconTheme.h"
#include "platform/linux/icons/PathIcons.h"
#include "tests/linux/World.h"

#include <gtest/gtest.h>

namespace quillary::test {

namespace {

using Strings = std::vector<std::string>;

class IconThemeTest : public WorldTest {};

TEST_F(IconThemeTest, settingsOfTheDesktopInUseComeFirst) {
    writeFile(World::config() / "gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name=Papirus\n");
    writeFile(World::config() / "kdeglobals", "[Icons]\nTheme=breeze-dark\n");
    EXPECT_EQ(IconTheme::chosenByUser(World::config(), CurrentDesktop("KDE")), "breeze-dark");
    EXPECT_EQ(IconTheme::chosenByUser(World::config(), CurrentDesktop("XFCE")), "Papirus");
}

TEST_F(IconThemeTest, xfceHasSettingsOfItsOwn) {
    const auto channel = World::config() / "xfce4/xfconf/xfce-perchannel-xml/xsettings.xml";
    writeFile(World::config() / "gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name=Papirus\n");
    writeFile(channel, R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xsettings" version="1.0">
  <property name="IconThemeName" type="string" value="elsewhere"/>
  <property name="Net" type="empty">
    <property name="ThemeName" type="string" value="Greybird"/>
    <property name="IconThemeName" type="string" value="elementary-xfce"/>
  </property>
</channel>)");
    EXPECT_EQ(IconTheme::chosenByUser(World::config(), CurrentDesktop("XFCE")), "elementary-xfce");
    EXPECT_EQ(IconTheme::chosenByUser(World::config(), CurrentDesktop("GNOME")), "Papirus");
    writeFile(channel, R"(<channel><property name="Net"><property name="IconThemeName" type="empty"/>)");
    EXPECT_EQ(IconTheme::chosenByUser(World::config(), CurrentDesktop("XFCE")), "Papirus");
    std::string deep = "<channel>";
    for (int level = 0; level < 20000; ++level) {
        deep += "<property name=\"p\">";
    }
    writeFile(channel, deep);
    EXPECT_EQ(IconTheme::chosenByUser(World::config(), CurrentDesktop("XFCE")), "Papirus");
    writeFile(channel, R"(<channel><property name="Net"><property name="IconThemeName" value="../../x"/>)");
    EXPECT_EQ(IconTheme::chosenByUser(World::config(), CurrentDesktop("XFCE")), "Papirus");
}

TEST_F(IconThemeTest, otherSettingsStandInForMissingOnes) {
    EXPECT_EQ(IconTheme::chosenByUser(World::config(), CurrentDesktop("KDE")), "");
    writeFile(World::config() / "kdeglobals", "[Icons]\nTheme=breeze-dark\n");
    EXPECT_EQ(IconTheme::chosenByUser(World::config(), CurrentDesktop("XFCE")), "breeze-dark");
    writeFile(World::config() / "kdeglobals", "[Icons]\nTheme=../../etc\n");
    EXPECT_EQ(IconTheme::chosenByUser(World::config(), CurrentDesktop("KDE")), "");
}

TEST_F(IconThemeTest, firstThemeThatIsInstalledIsTaken) {
    writeFile(World::userData() / "icons/B/index.theme", "[Icon Theme]\nName=B\n");
    writeFile(World::systemData() / "icons/A/index.theme", "[Icon Theme]\nName=A\n");
    std::filesystem::create_directories(World::systemData() / "icons/Empty");
    const std::vector<std::filesystem::path> folders{World::userData() / "icons",
                                                     World::systemData() / "icons"};
    EXPECT_EQ(IconTheme::firstInstalled({"Empty", "../icons/A", "B", "A"}, folders), "B");
    EXPECT_EQ(IconTheme::firstInstalled({"A", "B"}, folders), "A");
    EXPECT_EQ(IconTheme::firstInstalled({"", "None"}, folders), "");
}

TEST_F(IconThemeTest, specialFoldersHaveTheirOwnIcons) {
    EXPECT_EQ(PathIcons::folderIconNames(World::home().string()).front(), "user-home");
    EXPECT_EQ(PathIcons::folderIconNames(World::home().string() + "/").front(), "user-home");
    EXPECT_EQ(PathIcons::folderIconNames((World::home() / "Desktop").string()).front(), "user-desktop");
    EXPECT_EQ(PathIcons::folderIconNames("/").front(), "drive-harddisk");
    EXPECT_EQ(PathIcons::folderIconNames("/srv"), (Strings{"folder", "inode-directory"}));
}

} // namespace

} // namespace quillary::test
