#include "platform/linux/statusbar/DBusMenuLayout.h"
#include "tests/desktop/DesktopFixture.h"
#include "tests/linux/bus/PrivateBus.h"
#include "tests/linux/statusbar/NotifierWatcherStandIn.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>

#include <csignal>
#include <memory>

namespace quillary::test {

namespace {

/// The window of the settings, and starting the program anew.
class ShellTest : public DesktopFixture {
protected:
    [[nodiscard]] xcb_window_t settingsWindow() const {
        for (const auto window : display.numbers(display.root(), "_NET_CLIENT_LIST")) {
            const auto title = xcb_get_property_reply(
                display.xcb(),
                xcb_get_property(display.xcb(), 0, window, display.atom("_NET_WM_NAME"), XCB_ATOM_ANY, 0, 64),
                nullptr);
            const bool found = title != nullptr &&
                               std::string(static_cast<const char*>(xcb_get_property_value(title)),
                                           static_cast<std::size_t>(xcb_get_property_value_length(title))) ==
                                   "Quillary Settings";
            std::free(title);
            if (found) {
                return window;
            }
        }
        return XCB_WINDOW_NONE;
    }
    void startKnown(const std::vector<std::string>& environment = {}) {
        home.writeSettings(settingsJson({dockJson(leftKey, {}), dockJson(rightKey, {})}));
        program.start(environment);
        ASSERT_TRUE(eventually([&] { return docks().size() == 2; })) << program.log();
    }
};

/// The program in a session with a bus on which a status bar listens.
class StatusMenuTest : public ShellTest {
protected:
    void SetUp() override {
        ShellTest::SetUp();
        static int count = 1;
        static char name[] = "shell-tests";
        static char* arguments[] = {name, nullptr};
        application = std::make_unique<QCoreApplication>(count, arguments);
        bus = std::make_unique<PrivateBus>();
        ASSERT_FALSE(bus->address().empty());
        qRegisterMetaType<DBusMenuNode>();
        watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    }
    void TearDown() override {
        watcher.reset();
        EXPECT_TRUE(!program.isRunning() || program.quit());
        bus.reset();
        application.reset();
    }
    void startWithItem() {
        startKnown();
        ASSERT_TRUE(eventually([&] { return watcher->items().size() == 1; })) << program.log();
    }
    QDBusMessage ask(const QString& method, const QVariantList& arguments) {
        auto message =
            QDBusMessage::createMethodCall(watcher->items().constLast(), QStringLiteral("/MenuBar"),
                                           QStringLiteral("com.canonical.dbusmenu"), method);
        message.setArguments(arguments);
        const auto call = watcher->connection().asyncCall(message);
        eventually([&] { return call.isFinished(); });
        return call.reply();
    }
    DBusMenuNode layout() {
        const auto opened = ask(QStringLiteral("AboutToShow"), {0});
        static_cast<void>(opened);
        const auto reply = ask(QStringLiteral("GetLayout"), {0, -1, QStringList()});
        return reply.arguments().size() == 2 ? qdbus_cast<DBusMenuNode>(reply.arguments().at(1))
                                             : DBusMenuNode();
    }
    std::vector<std::string> lines() {
        std::vector<std::string> result;
        for (const auto& line : layout().children) {
            const bool checked = line.properties.value(QStringLiteral("toggle-state")).toInt() == 1;
            const auto label = line.properties.value(QStringLiteral("label")).toString().toStdString();
            result.push_back((checked ? "✓ " : "") + (label.empty() ? std::string("-") : label));
        }
        return result;
    }
    void choose(const std::string& title) {
        for (const auto& line : layout().children) {
            if (line.properties.value(QStringLiteral("label")).toString().toStdString() == title) {
                const auto answer = ask(QStringLiteral("Event"), {line.id, QStringLiteral("clicked"),
                                                                  QVariant::fromValue(QDBusVariant(0)), 0U});
                static_cast<void>(answer);
                return;
            }
        }
        ADD_FAILURE() << "no line " << title;
    }

    std::unique_ptr<QCoreApplication> application;
    std::unique_ptr<PrivateBus> bus;
    std::unique_ptr<NotifierWatcherStandIn> watcher;
};

using Lines = std::vector<std::string>;

} // namespace

TEST_F(ShellTest, theFirstRunGreetsAndTheNextDoesNot) {
    program.start();
    ASSERT_TRUE(eventually([&] { return settingsWindow() != XCB_WINDOW_NONE; })) << program.log();
    EXPECT_TRUE(home.settings().value(QStringLiteral("onboarded")).toBool());
    EXPECT_EQ(docks().size(), 2U);
    ASSERT_TRUE(program.quit());
    startWithDocks(2);
    VirtualDisplay::runFor(1000);
    EXPECT_EQ(settingsWindow(), xcb_window_t{XCB_WINDOW_NONE});
}

TEST_F(ShellTest, startingItAgainShowsTheSettingsOfTheOneThatRuns) {
    startKnown();
    const auto before = windowCount();
    EXPECT_EQ(settingsWindow(), xcb_window_t{XCB_WINDOW_NONE});
    Program second(home);
    second.start();
    EXPECT_EQ(second.waitForEnd(), Program::End{0});
    ASSERT_TRUE(eventually([&] { return settingsWindow() != XCB_WINDOW_NONE; })) << program.log();
    EXPECT_TRUE(eventually([&] { return isActive(settingsWindow()); }));
    EXPECT_TRUE(program.isRunning());
    EXPECT_EQ(docks().size(), 2U);
    EXPECT_GT(windowCount(), before);
    // Once more: the same window, in front.
    const auto window = settingsWindow();
    Program third(home);
    third.start();
    EXPECT_EQ(third.waitForEnd(), Program::End{0});
    VirtualDisplay::runFor(300);
    EXPECT_EQ(settingsWindow(), window);
}

TEST_F(ShellTest, aKilledProgramDoesNotBarTheNextOne) {
    startKnown();
    program.signal(SIGKILL);
    EXPECT_EQ(program.waitForEnd(), Program::End{std::nullopt});
    startKnown();
    EXPECT_EQ(docks().size(), 2U);
}

TEST_F(ShellTest, theEndOfTheSessionEndsItInOrderAndItIsNotStartedTwiceByTheNext) {
    const auto record = home.path() / "session";
    const auto manager = display.start({QUILLARY_SESSION_MANAGER, record.string()});
    ASSERT_TRUE(eventually([&] { return Home::read(record).find('\n') != std::string::npos; }));
    const auto address = Home::read(record).substr(0, Home::read(record).find('\n'));
    startKnown({"SESSION_MANAGER=" + address});
    ASSERT_TRUE(eventually([&] { return Home::read(record).find("joined 1") != std::string::npos; }));
    kill(manager, SIGUSR1);
    EXPECT_EQ(program.waitForEnd(), Program::End{0});
    // SmRestartNever
    EXPECT_NE(Home::read(record).find("restart hint 3"), std::string::npos) << Home::read(record);
}

TEST_F(StatusMenuTest, hasAllLinesInTheirOrder) {
    startWithItem();
    EXPECT_EQ(lines(), (Lines{"Settings…", "-", "✓ Dock on LEFT", "✓ Dock on RIGHT", "✓ Hide the macOS Dock",
                              "Show RAM on Dock", "-", "Show Settings File", "Quit Quillary"}));
}

TEST_F(StatusMenuTest, switchesADockOffAndOnAgain) {
    startWithItem();
    choose("Dock on LEFT");
    EXPECT_TRUE(eventually([&] { return docks().size() == 1; }));
    EXPECT_TRUE(eventually([&] { return lines().at(2) == "Dock on LEFT"; }));
    EXPECT_FALSE(home.dockSettings(leftKey).value(QStringLiteral("enabled")).toBool(true));
    choose("Dock on LEFT");
    EXPECT_TRUE(eventually([&] { return docks().size() == 2; }));
    EXPECT_TRUE(eventually([&] { return lines().at(2) == "✓ Dock on LEFT"; }));
}

TEST_F(StatusMenuTest, listsTheScreensThereAre) {
    startWithItem();
    display.unplugMonitor("RIGHT");
    EXPECT_TRUE(eventually([&] { return lines().size() == 8; }));
    EXPECT_EQ(lines().at(3), "✓ Hide the macOS Dock");
}

TEST_F(StatusMenuTest, opensTheSettings) {
    startWithItem();
    choose("Settings…");
    EXPECT_TRUE(eventually([&] { return settingsWindow() != XCB_WINDOW_NONE; }));
}

TEST_F(StatusMenuTest, quitEndsTheProgramInOrder) {
    startWithItem();
    choose("Quit Quillary");
    EXPECT_EQ(program.waitForEnd(), Program::End{0});
}

TEST_F(StatusMenuTest, aBarThatStartsLaterGetsTheSymbolToo) {
    watcher.reset();
    startKnown();
    VirtualDisplay::runFor(500);
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    EXPECT_TRUE(eventually([&] { return watcher->items().size() == 1; }));
    EXPECT_EQ(lines().size(), 9U);
}

} // namespace quillary::test
