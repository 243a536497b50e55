#include "platform/linux/CurrentDesktop.h"
#include "platform/linux/icons/IconTheme.h"
#include "platform/linux/icons/PathIcons.h"
#include "tests/linux/World.h"

#include <QIcon>

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

TEST_F(IconThemeTest, theSessionsThemeComesBeforeThatOfTheFiles) {
    for (const char* name : {"Session", "File"}) {
        writeFile(World::userData() / "icons" / name / "index.theme", "[Icon Theme]\nName=x\n");
    }
    writeFile(World::config() / "gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name=File\n");
    const auto folders = QIcon::themeSearchPaths();
    const auto fallbacks = QIcon::fallbackSearchPaths();
    const auto theme = QIcon::themeName();
    const auto fallbackTheme = QIcon::fallbackThemeName();
    QIcon::setThemeSearchPaths({QString::fromStdString((World::userData() / "icons").string())});
    IconTheme::apply("Session");
    EXPECT_EQ(QIcon::themeName(), QStringLiteral("Session"));
    QIcon::setThemeName(QStringLiteral("hicolor"));
    IconTheme::apply("");
    EXPECT_EQ(QIcon::themeName(), QStringLiteral("File"));
    QIcon::setThemeName(QStringLiteral("hicolor"));
    for (const char* unusable : {"../icons/File", "NotInstalled", ".hidden", "/"}) {
        IconTheme::apply(unusable);
        EXPECT_EQ(QIcon::themeName(), QStringLiteral("hicolor")) << unusable;
    }
    QIcon::setThemeSearchPaths(folders);
    QIcon::setFallbackSearchPaths(fallbacks);
    QIcon::setFallbackThemeName(fallbackTheme);
    QIcon::setThemeName(theme);
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
