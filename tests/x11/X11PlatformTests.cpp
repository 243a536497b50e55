#include "platform/PanelWindow.h"
#include "platform/Screens.h"
#include "platform/x11/X11Platform.h"
#include "tests/surroundings/QtSurroundings.h"
#include "tests/x11/X11Fixture.h"

#include <QWidget>

namespace quillary {

using X11PlatformTest = test::X11Fixture;

TEST_F(X11PlatformTest, hasAllParts) {
    startApplication();
    const auto platform = X11Platform::open();
    ASSERT_NE(platform, nullptr);
    EXPECT_EQ(platform->screens().list().size(), 2U);
    EXPECT_GE(platform->scheduler().now(), 0.0);
    QWidget contents;
    const auto panel = platform->makePanelWindow(contents);
    ASSERT_NE(panel, nullptr);
    panel->setFrame(QRect(10, 10, 100, 50));
    panel->orderFront();
    EXPECT_TRUE(eventually([&] { return display.isViewable(static_cast<xcb_window_t>(contents.winId())); }));
}

TEST_F(X11PlatformTest, fontsAndIconsAreTheTests) {
    startApplication();
    test::expectOwnFontsAndIcons();
}

TEST_F(X11PlatformTest, settingsStandInTheConfigurationFolder) {
    startApplication();
    const auto platform = X11Platform::open();
    ASSERT_NE(platform, nullptr);
    setenv("XDG_CONFIG_HOME", "/some/where", 1);
    EXPECT_EQ(platform->applicationSupportDirectory(), "/some/where");
    setenv("XDG_CONFIG_HOME", "relative", 1);
    setenv("HOME", "/home/someone", 1);
    EXPECT_EQ(platform->applicationSupportDirectory(), "/home/someone/.config");
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(platform->applicationSupportDirectory(), "/home/someone/.config");
}

TEST(X11PlatformElsewhere, withoutX11ThereIsNone) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int count = 1;
    char name[] = "x11-tests";
    char* arguments[] = {name, nullptr};
    const QApplication application(count, arguments);
    testing::internal::CaptureStderr();
    EXPECT_EQ(X11Platform::open(), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Quillary: docks need an X11 session; this one has none.\n");
}

} // namespace quillary
