#include "app/DebugSnapshot.h"
#include "app/settings/SettingsWindow.h"
#include "tests/app/Fixture.h"

#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QTemporaryDir>
#include <QWindow>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace quillary::test {
namespace {

class DebugSnapshotTest : public Desktop {
protected:
    void request(const std::string& target) {
        qputenv(DebugSnapshot::variable, QByteArray::fromStdString(target));
        const auto showSettings = [this] {
            if (settings) {
                settings->show(SettingsWindow::Form::normal);
            }
        };
        snapshot =
            std::make_unique<DebugSnapshot>(target, *manager, platform, showSettings, [this] { ++ended; });
    }
    void startWithSettings() {
        start();
        settings = std::make_unique<SettingsWindow>(*manager);
    }
    [[nodiscard]] bool greets() const {
        const auto labels = settings->window()->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [](const QLabel* label) {
            return label->text() == QStringLiteral("Welcome — every screen now has its own Dock.");
        });
    }
    void TearDown() override { qunsetenv(DebugSnapshot::variable); }
    [[nodiscard]] std::filesystem::path file(const std::string& name) const {
        return std::filesystem::path(folder.path().toStdString()) / name;
    }
    [[nodiscard]] std::filesystem::path picture(const std::string& key) const {
        return file("screenshot-dock-" + std::to_string(number(panel(key).nativeWindow())) + ".png");
    }
    /// How many windows were made before this one.
    [[nodiscard]] static qsizetype number(QWindow* window) {
        const auto newestFirst = QGuiApplication::allWindows();
        return newestFirst.size() - 1 - newestFirst.indexOf(window);
    }

    QTemporaryDir folder;
    std::unique_ptr<SettingsWindow> settings;
    std::unique_ptr<DebugSnapshot> snapshot;
    int ended = 0;
};

TEST_F(DebugSnapshotTest, withoutTheVariableNothingIsRequested) {
    start();
    qunsetenv(DebugSnapshot::variable);
    EXPECT_EQ(DebugSnapshot::runIfRequested(*manager, platform, [] {}), nullptr);
    qputenv(DebugSnapshot::variable, "");
    EXPECT_EQ(DebugSnapshot::runIfRequested(*manager, platform, [] {}), nullptr);
    qputenv(DebugSnapshot::variable, "/somewhere");
    EXPECT_NE(DebugSnapshot::runIfRequested(*manager, platform, [] {}), nullptr);
}

TEST_F(DebugSnapshotTest, waits8SecondsForTheDocksAnd1MoreForTheSettingsThenEnds) {
    startWithSettings();
    request(folder.path().toStdString());
    platform.scheduler().advance(7.99);
    EXPECT_FALSE(std::filesystem::exists(picture(leftKey)));
    EXPECT_EQ(settings->window(), nullptr);
    platform.scheduler().advance(0.01);
    EXPECT_TRUE(std::filesystem::exists(picture(leftKey)));
    ASSERT_NE(settings->window(), nullptr);
    EXPECT_TRUE(settings->window()->isVisible());
    platform.scheduler().advance(0.99);
    EXPECT_FALSE(std::filesystem::exists(file("screenshot-settings.png")));
    EXPECT_FALSE(std::filesystem::exists(file("snapshot-report.txt")));
    EXPECT_EQ(ended, 0);
    platform.scheduler().advance(0.01);
    EXPECT_TRUE(std::filesystem::exists(file("screenshot-settings.png")));
    EXPECT_TRUE(std::filesystem::exists(file("snapshot-report.txt")));
    EXPECT_EQ(ended, 1);
    platform.scheduler().advance(60);
    EXPECT_EQ(ended, 1);
}

TEST_F(DebugSnapshotTest, thePictureOfTheSettingsIsWhatTheWindowShows) {
    startWithSettings();
    request(folder.path().toStdString());
    platform.scheduler().advance(9);
    const QImage taken(QString::fromStdString(file("screenshot-settings.png").string()));
    EXPECT_EQ(taken.size(), QSize(560, 640));
    EXPECT_EQ(taken.convertToFormat(QImage::Format_RGB32),
              settings->window()->grab().toImage().convertToFormat(QImage::Format_RGB32));
}

TEST_F(DebugSnapshotTest, itShowsTheSettingsWithoutTheBannerButDoesNotTakeItAway) {
    startWithSettings();
    request(folder.path().toStdString());
    platform.scheduler().advance(9);
    EXPECT_FALSE(greets());
    settings = std::make_unique<SettingsWindow>(*manager);
    settings->show(SettingsWindow::Form::welcome);
    request(folder.path().toStdString());
    platform.scheduler().advance(9);
    EXPECT_TRUE(greets());
}

TEST_F(DebugSnapshotTest, withoutSettingsToShowTheRestIsTaken) {
    start();
    request(folder.path().toStdString());
    platform.scheduler().advance(9);
    EXPECT_FALSE(std::filesystem::exists(file("screenshot-settings.png")));
    EXPECT_TRUE(std::filesystem::exists(file("snapshot-report.txt")));
    EXPECT_EQ(ended, 1);
}

TEST_F(DebugSnapshotTest, aFolderThatTakesNoFilesYieldsNoneButEndsTheProgram) {
    startWithSettings();
    std::ofstream(file("taken")) << "a file";
    request(file("taken").string());
    platform.scheduler().advance(9);
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(std::filesystem::file_size(file("taken")), 6U);
}

TEST_F(DebugSnapshotTest, drawsEveryDockThatIsShown) {
    platform.screens().connected = {screenNamed("LEFT", leftFrame), screenNamed("RIGHT", rightFrame)};
    start();
    manager->update(rightKey, [](DockConfig& config) { config.autoHide = true; });
    request(folder.path().toStdString());
    platform.scheduler().advance(8);
    EXPECT_FALSE(std::filesystem::exists(picture(rightKey)));
    const QImage dock(QString::fromStdString(picture(leftKey).string()));
    EXPECT_EQ(dock.size(), panel(leftKey).frame().size());
}

TEST_F(DebugSnapshotTest, thePicturesAreNumberedInTheOrderOfTheWindowsCreation) {
    platform.screens().connected = {screenNamed("LEFT", leftFrame)};
    const QWindow oldest;
    const auto before = QGuiApplication::allWindows().size();
    start();
    const auto withLeft = QGuiApplication::allWindows().size();
    const QWindow between;
    platform.screens().set({screenNamed("LEFT", leftFrame), screenNamed("RIGHT", rightFrame)});
    request(folder.path().toStdString());
    const QWindow newest;
    platform.scheduler().advance(9);
    std::vector<qsizetype> numbers;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path().toStdString())) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with("screenshot-dock-")) {
            numbers.push_back(std::stol(name.substr(16)));
        }
    }
    std::ranges::sort(numbers);
    ASSERT_EQ(numbers.size(), 2U);
    EXPECT_EQ(withLeft, before + 1);
    EXPECT_EQ(numbers[0], before);
    EXPECT_EQ(numbers[1], before + 2);
}

TEST_F(DebugSnapshotTest, aMissingFolderYieldsNoFilesButEndsTheProgram) {
    start();
    request(file("missing").string());
    platform.scheduler().advance(9);
    EXPECT_EQ(ended, 1);
    EXPECT_FALSE(std::filesystem::exists(file("missing")));
}

TEST_F(DebugSnapshotTest, theReportNamesEveryDockWithAllRunningApplications) {
    platform.screens().connected = {screenNamed("LEFT", leftFrame), screenNamed("RIGHT", rightFrame)};
    start();
    manager->update(rightKey, [](DockConfig& config) { config.enabled = false; });
    platform.workspace().launch("/Applications/Mail.app");
    platform.workspace().launch("/Applications/Notes");
    EXPECT_EQ(DebugSnapshot::report(*manager, platform.files()), "showsMemory: true\n"
                                                                 "pressure: normal · used 0 MB of 0 MB\n"
                                                                 "dock LEFT\n"
                                                                 "  Mail · — · none\n"
                                                                 "  Notes · — · none\n"
                                                                 "dock RIGHT\n"
                                                                 "  Mail · — · none\n"
                                                                 "  Notes · — · none");
    request(folder.path().toStdString());
    platform.scheduler().advance(9);
    std::ostringstream stored;
    stored << std::ifstream(file("snapshot-report.txt")).rdbuf();
    EXPECT_EQ(stored.str(), DebugSnapshot::report(*manager, platform.files()));
}

} // namespace
} // namespace quillary::test
