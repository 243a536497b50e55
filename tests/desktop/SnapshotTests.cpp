#include "tests/desktop/DesktopFixture.h"

#include <algorithm>

namespace quillary::test {

namespace {

class SnapshotTest : public DesktopFixture {
protected:
    void SetUp() override {
        DesktopFixture::SetUp();
        const std::string options = R"("magnification":"off")";
        home.writeSettings(settingsJson({dockJson(leftKey, {home.install("red", Qt::red)}, options),
                                         dockJson(rightKey, {"/a", "/b"}, options)}));
    }
};

} // namespace

TEST_F(SnapshotTest, aNamedFolderGetsPicturesAndAReportAndTheProgramEnds) {
    const auto folder = home.path() / "snapshot";
    std::filesystem::create_directories(folder);
    program.start({"QY_SNAPSHOT_DIR=" + folder.string()});
    EXPECT_EQ(program.waitForEnd(), Program::End{0}) << program.log();

    std::vector<QImage> pictures;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().filename().string().starts_with("screenshot-dock-")) {
            pictures.emplace_back(QString::fromStdString(entry.path().string()));
        }
    }
    ASSERT_EQ(pictures.size(), 2U);
    std::ranges::sort(pictures, {}, &QImage::width);
    EXPECT_EQ(pictures[0].size(), QSize(92, 125));
    EXPECT_EQ(pictures[1].size(), QSize(146, 125));
    EXPECT_EQ(pictures[0].pixelColor(46, 82), QColor(Qt::red)) << "the middle of the icon";

    // At its first size, on the page's colour beside the groups.
    const QImage settings(QString::fromStdString((folder / "screenshot-settings.png").string()));
    EXPECT_EQ(settings.size(), QSize(560, 640));

    const auto report = Home::read(folder / "snapshot-report.txt");
    EXPECT_TRUE(report.starts_with("showsMemory: false\npressure: ")) << report;
    EXPECT_NE(report.find("\ndock LEFT\ndock RIGHT"), std::string::npos) << report;
}

TEST_F(SnapshotTest, picturesHaveTheScreensPixels) {
    const auto folder = home.path() / "snapshot";
    std::filesystem::create_directories(folder);
    program.start({"QY_SNAPSHOT_DIR=" + folder.string(), "QT_SCALE_FACTOR=2"});
    EXPECT_EQ(program.waitForEnd(), Program::End{0}) << program.log();
    const QImage settings(QString::fromStdString((folder / "screenshot-settings.png").string()));
    EXPECT_EQ(settings.size(), QSize(1120, 1280));
}

TEST_F(SnapshotTest, aDockThatIsHiddenHasNoPicture) {
    home.writeSettings(settingsJson(
        {dockJson(leftKey, {"/a"}, R"("autoHide":true)"), dockJson(rightKey, {"/a"}, R"("enabled":false)")}));
    const auto folder = home.path() / "snapshot";
    std::filesystem::create_directories(folder);
    program.start({"QY_SNAPSHOT_DIR=" + folder.string()});
    EXPECT_EQ(program.waitForEnd(), Program::End{0}) << program.log();
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        files.push_back(entry.path().filename().string());
    }
    std::ranges::sort(files);
    EXPECT_EQ(files, (std::vector<std::string>{"screenshot-settings.png", "snapshot-report.txt"}));
    EXPECT_NE(Home::read(folder / "snapshot-report.txt").find("\ndock LEFT\ndock RIGHT"), std::string::npos);
}

TEST_F(SnapshotTest, aFolderThatIsNotThereStillEndsTheProgram) {
    const auto folder = home.path() / "missing";
    program.start({"QY_SNAPSHOT_DIR=" + folder.string()});
    EXPECT_EQ(program.waitForEnd(), Program::End{0}) << program.log();
    EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST_F(SnapshotTest, withoutAFolderItGoesOnRunning) {
    startWithDocks(2);
    // Longer than it would have waited before the pictures.
    VirtualDisplay::runFor(11000);
    EXPECT_TRUE(program.isRunning());
    EXPECT_EQ(docks().size(), 2U);
}

} // namespace quillary::test
