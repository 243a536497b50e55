#include "platform/x11/X11SingleInstance.h"
#include "platform/x11/X11StartupNotification.h"
#include "tests/x11/ChildProcess.h"
#include "tests/x11/X11Fixture.h"

#include <QElapsedTimer>
#include <QWidget>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>

namespace quillary {

using test::TestWindow;
using test::VirtualDisplay;
namespace ChildProcess = test::ChildProcess;
using namespace std::chrono_literals;

namespace {

constexpr int anotherRuns = 10;
constexpr int openedAgain = 20;

class X11SingleInstanceTest : public test::X11Fixture {
protected:
    void startInstance() {
        startApplication();
        startup = std::make_unique<X11StartupNotification>(connection->screenNumber());
        instance = std::make_unique<X11SingleInstance>(*connection, *startup);
        QObject::connect(instance.get(), &SingleInstance::reopened, instance.get(), [this] { ++reopenings; });
    }
    void TearDown() override {
        instance.reset();
        startup.reset();
        X11Fixture::TearDown();
    }
    [[nodiscard]] static pid_t startSecond(const std::string& argument = "plain") {
        return ChildProcess::start({SECOND_START, argument});
    }
    /// Its exit status, while this process goes on with its events.
    [[nodiscard]] static int endOf(pid_t process) {
        int status = -1;
        VirtualDisplay::waitUntil([&] {
            status = ChildProcess::wait(process, 0);
            return status >= 0;
        });
        return status;
    }
    [[nodiscard]] xcb_window_t owner() const {
        auto* reply = xcb_get_selection_owner_reply(
            display.xcb(), xcb_get_selection_owner(display.xcb(), display.atom("_QUILLARY_S0")), nullptr);
        const auto window = reply == nullptr ? xcb_window_t{XCB_WINDOW_NONE} : reply->owner;
        std::free(reply);
        return window;
    }
    void take(const TestWindow& window) const {
        xcb_set_selection_owner(window.xcb(), window.id(), display.atom("_QUILLARY_S0"), XCB_CURRENT_TIME);
        // A round trip: other connections are to find the owner there.
        std::free(xcb_get_input_focus_reply(window.xcb(), xcb_get_input_focus(window.xcb()), nullptr));
    }

    std::unique_ptr<X11StartupNotification> startup;
    std::unique_ptr<X11SingleInstance> instance;
    int reopenings = 0;
};

} // namespace

TEST_F(X11SingleInstanceTest, theFirstHearsOfTheSecond) {
    startInstance();
    ASSERT_TRUE(instance->claim());
    EXPECT_TRUE(instance->claim());
    EXPECT_EQ(reopenings, 0);
    EXPECT_EQ(endOf(startSecond()), anotherRuns);
    EXPECT_TRUE(eventually([&] { return reopenings == 1; }));
    EXPECT_EQ(endOf(startSecond()), anotherRuns);
    EXPECT_TRUE(eventually([&] { return reopenings == 2; }));
}

TEST_F(X11SingleInstanceTest, startsAtTheSameMomentLeaveOne) {
    std::array<pid_t, 12> starts{};
    std::generate(starts.begin(), starts.end(), [] { return startSecond(); });
    int running = 0;
    int told = 0;
    for (const auto process : starts) {
        const int status = ChildProcess::wait(process, VirtualDisplay::deadline);
        running += status == openedAgain ? 1 : 0;
        told += status == anotherRuns ? 1 : 0;
    }
    EXPECT_EQ(running, 1);
    EXPECT_EQ(told, 11);
}

TEST_F(X11SingleInstanceTest, theClaimEndsWithTheProcess) {
    const pid_t first = startSecond();
    ASSERT_TRUE(VirtualDisplay::waitUntil([&] { return owner() != XCB_WINDOW_NONE; }));
    kill(first, SIGKILL);
    static_cast<void>(ChildProcess::wait(first, VirtualDisplay::deadline));
    startInstance();
    EXPECT_TRUE(instance->claim());
    EXPECT_EQ(endOf(startSecond()), anotherRuns);
}

TEST_F(X11SingleInstanceTest, aStartWhileTheOtherOneEndsTakesItsPlace) {
    const pid_t first = startSecond("deaf");
    ASSERT_TRUE(VirtualDisplay::waitUntil([&] { return owner() != XCB_WINDOW_NONE; }));
    startInstance();
    EXPECT_TRUE(instance->claim());
    EXPECT_EQ(ChildProcess::wait(first, VirtualDisplay::deadline), 30);
    EXPECT_EQ(endOf(startSecond()), anotherRuns);
    EXPECT_TRUE(eventually([&] { return reopenings == 1; }));
}

TEST_F(X11SingleInstanceTest, oneThatDoesNotAnswerIsLeftAlone) {
    const pid_t first = startSecond("once");
    ASSERT_TRUE(VirtualDisplay::waitUntil([&] { return owner() != XCB_WINDOW_NONE; }));
    kill(first, SIGSTOP);
    startInstance();
    QElapsedTimer clock;
    clock.start();
    // The other process stays stopped until this call has returned.
    EXPECT_FALSE(instance->claim());
    EXPECT_GE(clock.elapsed(), 2900);
    kill(first, SIGCONT);
    EXPECT_EQ(endOf(first), openedAgain) << "it hears of it later";
}

TEST_F(X11SingleInstanceTest, anotherProgramsOwnerIsNoReasonNotToRun) {
    const TestWindow foreign(display, QRect(0, 0, 10, 10));
    take(foreign);
    ASSERT_EQ(owner(), foreign.id());
    startInstance();
    EXPECT_TRUE(instance->claim());
    EXPECT_NE(owner(), foreign.id());
}

TEST_F(X11SingleInstanceTest, losingTheSelectionEndsNothing) {
    startInstance();
    ASSERT_TRUE(instance->claim());
    const TestWindow foreign(display, QRect(0, 0, 10, 10));
    take(foreign);
    settle();
    EXPECT_TRUE(instance->claim());
    EXPECT_EQ(reopenings, 0);
}

TEST_F(X11SingleInstanceTest, messagesOfOtherKindsAreIgnored) {
    startInstance();
    ASSERT_TRUE(instance->claim());
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 8;
    message.window = owner();
    message.type = display.atom("_QUILLARY_REOPEN");
    const auto send = [&] {
        xcb_send_event(display.xcb(), 0, message.window, 0, reinterpret_cast<const char*>(&message));
        xcb_flush(display.xcb());
    };
    send();
    message.format = 32;
    message.type = display.atom("WM_PROTOCOLS");
    send();
    settle();
    EXPECT_EQ(reopenings, 0);
    message.type = display.atom("_QUILLARY_REOPEN");
    message.data.data32[1] = 0xFFFFFFFF;
    send();
    EXPECT_TRUE(eventually([&] { return reopenings == 1; }));
}

TEST_F(X11SingleInstanceTest, aWindowShownThenIsAsYoungAsTheSecondStart) {
    ASSERT_TRUE(display.startWindowManager());
    startInstance();
    ASSERT_TRUE(instance->claim());
    QWidget earlier;
    earlier.show();
    ASSERT_TRUE(eventually([&] { return display.isViewable(xcb_window_t(earlier.winId())); }));
    earlier.hide();
    settle();
    TestWindow other(display, QRect(100, 100, 600, 400));
    ASSERT_TRUE(other.show());
    display.click(QPoint(120, 480));
    settle();
    // The X server's clock is the system's monotonic one.
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    const auto start = static_cast<std::uint32_t>(now / 1ms);
    settle();
    QWidget window;
    QObject::connect(instance.get(), &SingleInstance::reopened, &window, [&] { window.show(); });
    setenv("DESKTOP_STARTUP_ID", ("launcher_TIME" + std::to_string(start)).c_str(), 1);
    EXPECT_EQ(endOf(startSecond()), anotherRuns);
    unsetenv("DESKTOP_STARTUP_ID");
    ASSERT_TRUE(eventually([&] { return window.isVisible(); }));
    const auto id = xcb_window_t(window.winId());
    EXPECT_TRUE(eventually([&] {
        return display.numbers(display.root(), "_NET_ACTIVE_WINDOW") == std::vector<std::uint32_t>{id};
    }));
    const auto times = display.numbers(id, "_NET_WM_USER_TIME");
    ASSERT_EQ(times.size(), 1U);
    EXPECT_GE(times.front(), start);
}

TEST_F(X11SingleInstanceTest, aTimeInTheFutureIsNotBelieved) {
    startInstance();
    ASSERT_TRUE(instance->claim());
    setenv("DESKTOP_STARTUP_ID", "launcher-1_TIME4000000000", 1);
    EXPECT_EQ(endOf(startSecond()), anotherRuns);
    unsetenv("DESKTOP_STARTUP_ID");
    ASSERT_TRUE(eventually([&] { return reopenings == 1; }));
    QWidget window;
    window.show();
    ASSERT_TRUE(eventually([&] { return display.isViewable(xcb_window_t(window.winId())); }));
    const auto times = display.numbers(xcb_window_t(window.winId()), "_NET_WM_USER_TIME");
    ASSERT_EQ(times.size(), 1U);
    EXPECT_NE(times.front(), 4000000000U);
}

TEST_F(X11SingleInstanceTest, theSecondStartEndsItsOwnStartupSequence) {
    startInstance();
    ASSERT_TRUE(instance->claim());
    std::string text;
    const auto begin = display.atom("_NET_STARTUP_INFO_BEGIN");
    const auto more = display.atom("_NET_STARTUP_INFO");
    QObject::connect(connection.get(), &X11Connection::eventReceived, instance.get(),
                     [&](const xcb_generic_event_t* event) {
                         const auto* message = eventAs<xcb_client_message_event_t>(event);
                         if (eventKind(event) == XCB_CLIENT_MESSAGE &&
                             (message->type == begin || message->type == more)) {
                             text.append(std::begin(message->data.data8), std::end(message->data.data8));
                         }
                     });
    setenv("DESKTOP_STARTUP_ID", "launcher-4711-host_TIME12345", 1);
    EXPECT_EQ(endOf(startSecond()), anotherRuns);
    unsetenv("DESKTOP_STARTUP_ID");
    EXPECT_TRUE(eventually([&] { return text.find('\0') != std::string::npos; }));
    EXPECT_EQ(text.substr(0, text.find('\0')), R"(remove: ID="launcher-4711-host_TIME12345")");
}

} // namespace quillary
