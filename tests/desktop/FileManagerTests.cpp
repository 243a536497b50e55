#include "tests/desktop/DesktopFixture.h"
#include "tests/surroundings/Surroundings.h"

#include <QImage>
#include <QJsonArray>

namespace quillary::test {

namespace {

const QColor red(220, 20, 20);
/// What the file manager draws for every file: its icon theme has one picture.
const QColor magenta(255, 0, 255);

constexpr int iconSide = 48;

/// A real file manager that shows a folder with one file, over a dock of an application and a folder: icons
/// of 48 points that don't grow, middles at 613 and 667 of a panel of 146 × 125 at 567, 775.
class FileManagerTest : public DesktopFixture {
protected:
    void SetUp() override {
        DesktopFixture::SetUp();
        Home::write(file, "A letter\n");
        std::filesystem::create_directories(pinnedFolder);
        items = {installReader(), pinnedFolder.string()};
        const std::string options = R"("magnification":"off")";
        home.writeSettings(settingsJson({dockJson(leftKey, items, options), dockJson(rightKey, {})}));
        startWithDocks(2);
        startFileManager();
    }

    /// An application that puts down what it is asked to open.
    std::string installReader() {
        std::string entry = home.install("red", red);
        const auto script = home.path() / "reader";
        Home::write(script, "#!/bin/sh\nprintf '%s\\n' \"$@\" >'" + opened.string() + "'\n");
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
        Home::write(entry, "[Desktop Entry]\nType=Application\nName=Reader\nIcon=" +
                               (home.path() / "red.png").string() + "\nExec=" + script.string() + " %F\n");
        return entry;
    }

    void installIconTheme() {
        const auto theme = home.path() / "data/icons/Plain";
        Home::write(theme / "index.theme", "[Icon Theme]\nName=Plain\nDirectories=mimetypes\n"
                                           "[mimetypes]\nSize=48\nMinSize=8\nMaxSize=512\nType=Scalable\n"
                                           "Context=MimeTypes\n");
        QImage picture(iconSide, iconSide, QImage::Format_RGB32);
        picture.fill(magenta);
        std::filesystem::create_directories(theme / "mimetypes");
        for (const char* name : {"text-x-generic", "text-plain", "unknown"}) {
            ASSERT_TRUE(picture.save(
                QString::fromStdString((theme / "mimetypes" / (std::string(name) + ".png")).string())));
        }
        Home::write(home.path() / "config/gtk-3.0/settings.ini",
                    "[Settings]\ngtk-icon-theme-name=Plain\ngtk-enable-animations=0\n");
    }

    void startFileManager() {
        installIconTheme();
        // It needs the machine's database of file kinds, which the program of the test does not see.
        ASSERT_NE(display.start(Surroundings::withMachineData({"thunar", file.parent_path().string()})), 0);
        ASSERT_TRUE(eventually([this] { return !fileIcon().isNull(); }));
        // It goes on arranging itself for a moment.
        ASSERT_TRUE(eventually([this] {
            const QRect before = fileIcon();
            VirtualDisplay::runFor(400);
            return !before.isNull() && before == fileIcon();
        }));
    }
    [[nodiscard]] QRect fileIcon() const { return colourBox(magenta, QRect(0, 0, 1280, 770)); }

    /// As a hand does it: a moment between pressing, moving and letting go.
    void dragFileTo(QPoint to) {
        constexpr int steps = 14;
        const QPoint from = fileIcon().center();
        display.movePointer(from);
        VirtualDisplay::runFor(300);
        display.pressButton(1);
        VirtualDisplay::runFor(150);
        for (int i = 1; i <= steps; ++i) {
            display.movePointer(from + (to - from) * i / steps);
            VirtualDisplay::runFor(40);
        }
        VirtualDisplay::runFor(400);
    }
    void dropFileOn(QPoint to) {
        dragFileTo(to);
        display.releaseButton(1);
    }
    [[nodiscard]] std::vector<std::string> pinned() const {
        std::vector<std::string> paths;
        for (const auto& item : home.dockSettings(leftKey).value(QStringLiteral("items")).toArray()) {
            paths.push_back(item.toString().toStdString());
        }
        return paths;
    }

    const QPoint application{613, 857};
    const QPoint folder{667, 857};
    const QPoint shelf{695, 870};
    const std::filesystem::path file = home.path() / "letters/A letter, ünïcode & 100%.txt";
    const std::filesystem::path pinnedFolder = home.path() / "Papers";
    const std::filesystem::path opened = home.path() / "opened";
    std::vector<std::string> items;
};

} // namespace

TEST_F(FileManagerTest, aFileDroppedOnTheBackgroundIsPinnedAtTheEnd) {
    dropFileOn(shelf);
    EXPECT_TRUE(eventually([this] {
        return pinned() == std::vector{items[0], items[1], file.string()};
    })) << testing::PrintToString(pinned());
    EXPECT_TRUE(std::filesystem::exists(file)) << "it is pinned, not moved";
}

TEST_F(FileManagerTest, aFileDroppedOnAFolderIsPinnedBeforeIt) {
    dropFileOn(folder);
    EXPECT_TRUE(eventually([this] {
        return pinned() == std::vector{items[0], file.string(), items[1]};
    })) << testing::PrintToString(pinned());
    EXPECT_TRUE(std::filesystem::exists(file));
    EXPECT_TRUE(std::filesystem::is_empty(pinnedFolder));
}

TEST_F(FileManagerTest, aFileDroppedOnAnApplicationIsOpenedByIt) {
    dropFileOn(application);
    EXPECT_TRUE(eventually([this] { return Home::read(opened) == file.string() + "\n"; }))
        << Home::read(opened) << program.log();
    EXPECT_EQ(pinned(), items);
    EXPECT_TRUE(std::filesystem::exists(file));
}

} // namespace quillary::test
