#include "platform/qt/QtScheduler.h"
#include "platform/x11/X11ClientList.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Screens.h"
#include "tests/x11/VirtualDisplay.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <unistd.h>

namespace quillary {

using test::VirtualDisplay;

TEST(X11ScreenModes, oneScreenNoneAndOneAgain) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "Xorg with the dummy driver runs as root only";
    }
    VirtualDisplay display(VirtualDisplay::Server::xorgDummy);
    ASSERT_TRUE(display.isRunning()) << display.error();
    int count = 1;
    char name[] = "x11-tests";
    char* arguments[] = {name, nullptr};
    const QApplication application(count, arguments);
    QtScheduler scheduler;
    const auto connection = X11Connection::open();
    X11ClientList clients(*connection, scheduler);
    const X11Screens screens(*connection, clients);
    ASSERT_EQ(screens.list().size(), 1U);
    const auto before = screens.list();

    ASSERT_EQ(display.run({"xrandr", "--output", "DUMMY0", "--off"}), 0);
    EXPECT_TRUE(VirtualDisplay::waitUntil([&] { return screens.list().empty(); }));
    ASSERT_EQ(display.run({"xrandr", "--output", "DUMMY0", "--auto"}), 0);
    EXPECT_TRUE(VirtualDisplay::waitUntil([&] { return screens.list().size() == 1; }));
    EXPECT_EQ(screens.list()[0].displayNumber, before[0].displayNumber);

    ASSERT_EQ(display.run({"xrandr", "--output", "DUMMY0", "--mode", "800x600"}), 0);
    EXPECT_TRUE(VirtualDisplay::waitUntil(
        [&] { return screens.list().size() == 1 && screens.list()[0].frame == QRectF(0, 0, 800, 600); }));
}

} // namespace quillary
