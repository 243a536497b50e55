#include "tests/linux/LinuxWorkspaceFixture.h"

#include <filesystem>

namespace quillary::test {

namespace {

class LinuxWorkspaceFilesTest : public LinuxWorkspaceTest {};

TEST_F(LinuxWorkspaceFilesTest, applicationsAreBundlesAndEntries) {
    std::filesystem::create_directories(World::home() / "folder.desktop");
    EXPECT_TRUE(workspace->isApplication(gimp));
    EXPECT_TRUE(workspace->isApplication("/gone.desktop"));
    EXPECT_TRUE(workspace->isApplication("/Applications/Mail.app"));
    EXPECT_FALSE(workspace->isApplication((World::home() / "folder.desktop").string()));
    EXPECT_FALSE(workspace->isApplication("/home/me/notes.txt"));
    EXPECT_FALSE(workspace->isApplication(""));
}

TEST_F(LinuxWorkspaceFilesTest, existsFollowsLinks) {
    std::filesystem::create_symlink("/nowhere/at/all", World::home() / "broken");
    EXPECT_TRUE(workspace->exists(gimp));
    EXPECT_TRUE(workspace->exists("/"));
    EXPECT_FALSE(workspace->exists((World::home() / "broken").string()));
    EXPECT_FALSE(workspace->exists(""));
    EXPECT_FALSE(workspace->exists("/nowhere"));
}

TEST_F(LinuxWorkspaceFilesTest, namesAreThoseOfFileManagers) {
    EXPECT_EQ(workspace->displayName(gimp), "Bildbearbeitung");
    EXPECT_EQ(workspace->displayName("/gone/missing.desktop"), "missing.desktop");
    EXPECT_EQ(workspace->displayName("/home/me/notes.txt"), "notes.txt");
    EXPECT_EQ(workspace->displayName("/srv/data/"), "data");
    EXPECT_EQ(workspace->displayName(World::home().string()), "Home");
    EXPECT_EQ(workspace->displayName("/"), "File System");
    writeFile(World::home() / "own.desktop", "[Desktop Entry]\nType=Application\nName=Own\nExec=own\n");
    EXPECT_EQ(workspace->displayName((World::home() / "own.desktop").string()), "Own");
}

bool paintsSomething(const QIcon& icon) {
    const auto image = icon.pixmap(64, 64).toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() > 0) {
                return true;
            }
        }
    }
    return false;
}

TEST_F(LinuxWorkspaceFilesTest, iconsAreThereWithoutAnyTheme) {
    writeFile(World::home() / "notes.txt", "text");
    for (const auto& path :
         {gimp, files, World::home().string(), (World::home() / "notes.txt").string(),
          std::string("/nowhere"), std::string("/gone.desktop"), std::string("/A.app"), std::string()}) {
        const auto icon = workspace->icon(path);
        EXPECT_FALSE(icon.isNull()) << path;
        EXPECT_TRUE(paintsSomething(icon)) << path;
    }
}

TEST_F(LinuxWorkspaceFilesTest, iconOfAnEntryMayBeAPicture) {
    QImage picture(48, 48, QImage::Format_ARGB32);
    picture.fill(QColor(10, 200, 30));
    const auto file = World::home() / "picture.png";
    ASSERT_TRUE(picture.save(QString::fromStdString(file.string())));
    const auto entry = install("picture.desktop", "Name=P\nExec=p\nIcon=" + file.string());
    EXPECT_EQ(workspace->icon(entry).pixmap(48, 48).toImage().pixelColor(24, 24), QColor(10, 200, 30));
}

TEST_F(LinuxWorkspaceFilesTest, pictureThatCannotBeReadIsReplaced) {
    writeFile(World::home() / "broken.png", "no picture");
    const auto entry =
        install("broken.desktop", "Name=B\nExec=b\nIcon=" + (World::home() / "broken.png").string());
    const auto icon = workspace->icon(entry);
    EXPECT_FALSE(icon.isNull());
    EXPECT_TRUE(paintsSomething(icon));
}

} // namespace

} // namespace quillary::test
