#include "tests/x11/X11Fixture.h"

namespace quillary::test {

void X11Fixture::SetUp() {
    ASSERT_TRUE(display.isRunning()) << display.error();
    display.plugTwoMonitors();
}

void X11Fixture::startApplication() {
    static int count = 1;
    static char name[] = "x11-tests";
    static char* arguments[] = {name, nullptr};
    application = std::make_unique<QApplication>(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    scheduler = std::make_unique<QtScheduler>();
    connection = X11Connection::open();
    ASSERT_NE(connection, nullptr);
    clients = std::make_unique<X11ClientList>(*connection, *scheduler);
    compositor = std::make_unique<X11Compositor>(*connection);
    screens = std::make_unique<X11Screens>(*connection, *clients);
}

void X11Fixture::TearDown() {
    screens.reset();
    compositor.reset();
    clients.reset();
    connection.reset();
    scheduler.reset();
    application.reset();
}

void X11Fixture::settle() {
    VirtualDisplay::runFor(150);
}

} // namespace quillary::test
