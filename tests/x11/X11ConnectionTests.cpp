#include "platform/x11/X11Property.h"
#include "tests/x11/X11Fixture.h"

#include <QTimer>
#include <QWidget>

#include <sys/wait.h>

namespace quillary {

using X11ConnectionTest = test::X11Fixture;

namespace {

int countEvents(X11Connection& connection, int kind, int& count) {
    QObject::connect(
        &connection, &X11Connection::eventReceived, &connection,
        [kind, &count](const xcb_generic_event_t* event) { count += eventKind(event) == kind ? 1 : 0; });
    return count;
}

} // namespace

TEST_F(X11ConnectionTest, failedRequestsAndVanishedWindowsEndNothing) {
    startApplication();
    test::TestWindow window(display, QRect(0, 0, 50, 50));
    const auto id = window.id();
    window.destroy();
    xcb_map_window(connection->xcb(), id);
    EXPECT_FALSE(
        readProperty(*connection, requestProperty(*connection, id, XCB_ATOM_WM_CLASS, 10)).windowExists);
    settle();
    EXPECT_TRUE(
        readProperty(*connection, requestProperty(*connection, connection->root(), XCB_ATOM_WM_CLASS, 10))
            .windowExists);
}

TEST_F(X11ConnectionTest, eventsReadTogetherWithAReplyAreToldWithoutFurtherTraffic) {
    startApplication();
    int told = 0;
    countEvents(*connection, XCB_PROPERTY_NOTIFY, told);
    settle();
    told = 0;
    const std::uint32_t value = 7;
    xcb_change_property(connection->xcb(), XCB_PROP_MODE_REPLACE, connection->root(),
                        display.atom("_QUILLARY_TEST"), XCB_ATOM_CARDINAL, 32, 1, &value);
    // The event comes before this reply and is read with it: the socket is silent afterwards.
    const auto reply = connection->reply(xcb_get_input_focus_reply, xcb_get_input_focus(connection->xcb()));
    EXPECT_NE(reply, nullptr);
    EXPECT_EQ(told, 0) << "never from inside a request";
    EXPECT_TRUE(eventually([&] { return told == 1; }));
}

TEST_F(X11ConnectionTest, whileItDoesNotListenEventsWait) {
    startApplication();
    int told = 0;
    countEvents(*connection, XCB_PROPERTY_NOTIFY, told);
    settle();
    told = 0;
    connection->setListening(X11Connection::Listening::off);
    const std::uint32_t value = 7;
    xcb_change_property(display.xcb(), XCB_PROP_MODE_REPLACE, display.root(), display.atom("_QUILLARY_TEST"),
                        XCB_ATOM_CARDINAL, 32, 1, &value);
    xcb_flush(display.xcb());
    settle();
    EXPECT_EQ(told, 0);
    connection->setListening(X11Connection::Listening::on);
    EXPECT_TRUE(eventually([&] { return told == 1; }));
}

TEST_F(X11ConnectionTest, ownWindowsAreTold) {
    startApplication();
    QWidget widget;
    EXPECT_TRUE(X11Connection::isOwnWindow(static_cast<xcb_window_t>(widget.winId())));
    EXPECT_TRUE(X11Connection::isOwnWindow(xcb_generate_id(connection->xcb())));
    const test::TestWindow other(display, QRect(0, 0, 50, 50));
    EXPECT_FALSE(X11Connection::isOwnWindow(other.id()));
    EXPECT_FALSE(X11Connection::isOwnWindow(display.root()));
}

TEST_F(X11ConnectionTest, whenTheServerGoesAwayTheApplicationQuitsByItsNormalPath) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    // Qt may be first and end the process itself, with status 1.
    const auto ended = [](int status) { return WIFEXITED(status) && WEXITSTATUS(status) <= 1; };
    const auto loseServer = [this] {
        startApplication();
        int farewells = 0;
        QObject::connect(application.get(), &QCoreApplication::aboutToQuit, application.get(), [&] {
            ++farewells;
            std::fprintf(stderr, "farewell %d\n", farewells);
        });
        QTimer::singleShot(0, application.get(), [this] { display.killServer(); });
        QTimer::singleShot(test::VirtualDisplay::deadline, application.get(), [] { std::_Exit(99); });
        std::exit(QApplication::exec());
    };
    EXPECT_EXIT(loseServer(), ended, "farewell 1\n$");
}

TEST(X11ConnectionOpen, withoutServerThereIsNone) {
    setenv("DISPLAY", ":987", 1);
    EXPECT_EQ(X11Connection::open(), nullptr);
}

} // namespace quillary
