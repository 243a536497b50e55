#include "platform/FileIcons.h"
#include "platform/x11/X11Platform.h"
#include "platform/x11/X11Xsettings.h"
#include "tests/core/TemporaryFolder.h"
#include "tests/x11/X11Fixture.h"
#include "tests/x11/XsettingsBytes.h"

#include <QIcon>

#include <filesystem>

namespace quillary {

namespace {

using test::TestWindow;
using test::XsettingsBytes;

class X11XsettingsTest : public test::X11Fixture {
protected:
    void SetUp() override {
        X11Fixture::SetUp();
        startApplication();
        manager = std::make_unique<TestWindow>(display, QRect(0, 0, 1, 1), TestWindow::Manager::bypassed);
    }
    void TearDown() override {
        manager.reset();
        X11Fixture::TearDown();
    }

    void takeSelection() {
        xcb_set_selection_owner(manager->xcb(), manager->id(), display.atom("_XSETTINGS_S0"),
                                XCB_CURRENT_TIME);
        // Requests of one connection are carried out in their order, and this one waits for the server.
        manager->removeProperty("_XSETTINGS_SETTINGS");
    }

    std::unique_ptr<TestWindow> manager;
};

} // namespace

TEST_F(X11XsettingsTest, theManagersIconThemeIsRead) {
    takeSelection();
    manager->setText("_XSETTINGS_SETTINGS",
                     XsettingsBytes().integer("Xft/DPI", 1).text("Net/IconThemeName", "mate").bytes());
    EXPECT_EQ(xsettingsIconTheme(*connection), "mate");
}

TEST_F(X11XsettingsTest, withoutAManagerThereIsNone) {
    manager->setText("_XSETTINGS_SETTINGS", XsettingsBytes().text("Net/IconThemeName", "mate").bytes());
    EXPECT_EQ(xsettingsIconTheme(*connection), "");
}

TEST_F(X11XsettingsTest, aManagerThatNamesNoneOrSendsSomethingElseGivesNone) {
    takeSelection();
    EXPECT_EQ(xsettingsIconTheme(*connection), "");
    manager->setText("_XSETTINGS_SETTINGS", "odd");
    EXPECT_EQ(xsettingsIconTheme(*connection), "");
    manager->setNumbers("_XSETTINGS_SETTINGS", "CARDINAL", {0, 0, 1});
    EXPECT_EQ(xsettingsIconTheme(*connection), "");
}

TEST_F(X11XsettingsTest, aManagerThatGoesLeavesNone) {
    takeSelection();
    manager->setText("_XSETTINGS_SETTINGS", XsettingsBytes().text("Net/IconThemeName", "mate").bytes());
    ASSERT_EQ(xsettingsIconTheme(*connection), "mate");
    manager->destroy();
    EXPECT_EQ(xsettingsIconTheme(*connection), "");
}

TEST_F(X11XsettingsTest, thePlatformsIconsAreOfTheManagersTheme) {
    const test::TemporaryFolder themes;
    std::filesystem::create_directory(themes.path() / "of-session");
    test::writeFile(themes.path() / "of-session/index.theme", "[Icon Theme]\nName=x\n");
    QIcon::setThemeSearchPaths({QString::fromStdString(themes.path().string())});
    takeSelection();
    manager->setText("_XSETTINGS_SETTINGS", XsettingsBytes().text("Net/IconThemeName", "of-session").bytes());
    const auto platform = X11Platform::open();
    ASSERT_NE(platform, nullptr);
    static_cast<void>(platform->icons().icon("/"));
    EXPECT_EQ(QIcon::themeName(), QStringLiteral("of-session"));
}

} // namespace quillary
