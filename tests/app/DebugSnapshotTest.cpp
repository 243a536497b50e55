#include "app/DebugSnapshot.h"

#include "tests/app/Fixture.h"

#include <QGuiApplication>
#include <QImage>
#include <QTemporaryDir>
#include <QWindow>

#include <fstream>
#include <sstream>

namespace quillary::test {
namespace {

class DebugSnapshotTest : public Desktop {
protected:
    void request(const std::string& target) {
        qputenv(DebugSnapshot::variable, QByteArray::fromStdString(target));
        snapshot = std::make_unique<DebugSnapshot>(target, *manager, platform, [this] { ++ended; });
    }
    void TearDown() override { qunsetenv(DebugSnapshot::variable); }
    [[nodiscard]] std::filesystem::path file(const std::string& name) const {
        return std::filesystem::path(folder.path().toStdString()) / name;
    }
    [[nodiscard]] std::filesystem::path picture(const std::string& key) const {
        const auto index = QGuiApplication::allWindows().indexOf(panel(key).nativeWindow());
        return file("screenshot-dock-" + std::to_string(index) + ".png");
    }

    QTemporaryDir folder;
    std::unique_ptr<DebugSnapshot> snapshot;
    int ended = 0;
};

TEST_F(DebugSnapshotTest, withoutTheVariableNothingIsRequested) {
    start();
    qunsetenv(DebugSnapshot::variable);
    EXPECT_EQ(DebugSnapshot::runIfRequested(*manager, platform), nullptr);
    qputenv(DebugSnapshot::variable, "");
    EXPECT_EQ(DebugSnapshot::runIfRequested(*manager, platform), nullptr);
    qputenv(DebugSnapshot::variable, "/somewhere");
    EXPECT_NE(DebugSnapshot::runIfRequested(*manager, platform), nullptr);
}

TEST_F(DebugSnapshotTest, waits8SecondsThenTakesItAndEnds) {
    start();
    request(folder.path().toStdString());
    platform.scheduler().advance(7.99);
    EXPECT_EQ(ended, 0);
    EXPECT_FALSE(std::filesystem::exists(file("snapshot-report.txt")));
    platform.scheduler().advance(0.01);
    EXPECT_EQ(ended, 1);
    EXPECT_TRUE(std::filesystem::exists(file("snapshot-report.txt")));
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

TEST_F(DebugSnapshotTest, aMissingFolderYieldsNoFilesButEndsTheProgram) {
    start();
    request(file("missing").string());
    platform.scheduler().advance(8);
    EXPECT_EQ(ended, 1);
    EXPECT_FALSE(std::filesystem::exists(file("missing")));
}

TEST_F(DebugSnapshotTest, theReportNamesEveryDockWithAllRunningApplications) {
    platform.screens().connected = {screenNamed("LEFT", leftFrame), screenNamed("RIGHT", rightFrame)};
    start();
    manager->update(rightKey, [](DockConfig& config) { config.enabled = false; });
    platform.workspace().launch("/Applications/Mail.app");
    platform.workspace().launch("/Applications/Notes");
    EXPECT_EQ(DebugSnapshot::report(*manager, platform.workspace()), "showsMemory: true\n"
                                                                     "pressure: normal · used 0 MB of 0 MB\n"
                                                                     "dock LEFT\n"
                                                                     "  Mail · — · none\n"
                                                                     "  Notes · — · none\n"
                                                                     "dock RIGHT\n"
                                                                     "  Mail · — · none\n"
                                                                     "  Notes · — · none");
    request(folder.path().toStdString());
    platform.scheduler().advance(8);
    std::ostringstream stored;
    stored << std::ifstream(file("snapshot-report.txt")).rdbuf();
    EXPECT_EQ(stored.str(), DebugSnapshot::report(*manager, platform.workspace()));
}

} // namespace
} // namespace quillary::test
