#include "platform/x11/X11WindowSource.h"
#include "tests/x11/X11Fixture.h"

#include <QWidget>

#include <unistd.h>

namespace quillary {

using test::TestWindow;
using test::VirtualDisplay;

namespace {

class X11WindowSourceTest : public test::X11Fixture {
protected:
    void startSource() {
        startApplication();
        source = std::make_unique<X11WindowSource>(*connection, *clients, *screens, *scheduler);
        QObject::connect(source.get(), &WindowSource::windowsChanged, source.get(),
                         [this] { ++windowChanges; });
        QObject::connect(source.get(), &WindowSource::activeWindowChanged, source.get(),
                         [this] { actives.push_back(source->activeWindow().value_or(0)); });
    }
    void TearDown() override {
        source.reset();
        X11Fixture::TearDown();
    }
    [[nodiscard]] std::vector<std::uint64_t> ids() const {
        std::vector<std::uint64_t> result;
        for (const auto& window : source->windows()) {
            result.push_back(window.id);
        }
        return result;
    }
    [[nodiscard]] WindowInfo info(const TestWindow& window) const {
        for (const auto& candidate : source->windows()) {
            if (candidate.id == window.id()) {
                return candidate;
            }
        }
        return {};
    }

    std::unique_ptr<X11WindowSource> source;
    int windowChanges = 0;
    std::vector<std::uint64_t> actives;
};

using Ids = std::vector<std::uint64_t>;

std::string hostName() {
    char name[256] = {};
    gethostname(name, sizeof name - 1);
    return name;
}

} // namespace

TEST_F(X11WindowSourceTest, listsWindowsInTheOrderOfTheirFirstShow) {
    ASSERT_TRUE(display.startWindowManager());
    startSource();
    TestWindow first(display, QRect(0, 0, 100, 100));
    TestWindow second(display, QRect(200, 0, 100, 100));
    ASSERT_TRUE(second.show());
    ASSERT_TRUE(eventually([&] { return ids() == Ids{second.id()}; }));
    ASSERT_TRUE(first.show());
    EXPECT_TRUE(eventually([&] { return ids() == Ids{second.id(), first.id()}; }));
    EXPECT_EQ(windowChanges, 2);
    second.destroy();
    EXPECT_TRUE(eventually([&] { return ids() == Ids{first.id()}; }));
    EXPECT_EQ(windowChanges, 3);
}

TEST_F(X11WindowSourceTest, readsWhatAWindowSaysOfItself) {
    ASSERT_TRUE(display.startWindowManager());
    startSource();
    TestWindow parent(display, QRect(0, 0, 100, 100));
    ASSERT_TRUE(parent.show());
    TestWindow window(display, QRect(200, 0, 100, 100));
    window.setClass("editor", "Org.Example.Editor");
    window.setProcess(4711, hostName());
    window.setText("_GTK_APPLICATION_ID", "org.example.Editor");
    window.setNumbers("WM_TRANSIENT_FOR", "WINDOW", {parent.id()});
    ASSERT_TRUE(window.show());
    ASSERT_TRUE(eventually([&] { return ids().size() == 2; }));
    EXPECT_EQ(info(window), (WindowInfo{.id = window.id(),
                                        .windowClass = "Org.Example.Editor",
                                        .instance = "editor",
                                        .pid = 4711,
                                        .applicationId = "org.example.Editor",
                                        .sandboxId = "",
                                        .transientFor = parent.id(),
                                        .normal = true}));
}

TEST_F(X11WindowSourceTest, aProcessOfAnotherMachineIsNotBelieved) {
    ASSERT_TRUE(display.startWindowManager());
    startSource();
    TestWindow remote(display, QRect(0, 0, 100, 100));
    remote.setProcess(4711, "elsewhere.example");
    TestWindow silent(display, QRect(200, 0, 100, 100));
    silent.setNumbers("_NET_WM_PID", "CARDINAL", {4711});
    ASSERT_TRUE(remote.show());
    ASSERT_TRUE(silent.show());
    ASSERT_TRUE(eventually([&] { return ids().size() == 2; }));
    EXPECT_EQ(info(remote).pid, 0);
    EXPECT_EQ(info(silent).pid, 0);
}

TEST_F(X11WindowSourceTest, changesOfAWindowAreTold) {
    ASSERT_TRUE(display.startWindowManager());
    startSource();
    TestWindow window(display, QRect(0, 0, 100, 100));
    window.setClass("a", "A");
    ASSERT_TRUE(window.show());
    ASSERT_TRUE(eventually([&] { return info(window).windowClass == "A"; }));
    windowChanges = 0;
    window.setClass("b", "B");
    EXPECT_TRUE(eventually([&] { return info(window).windowClass == "B"; }));
    EXPECT_EQ(windowChanges, 1);
    window.setAtoms("_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
    EXPECT_TRUE(eventually([&] { return !info(window).normal; }));
    EXPECT_EQ(windowChanges, 2);
    window.setText("WM_NAME", "only a title");
    settle();
    EXPECT_EQ(windowChanges, 2);
}

TEST_F(X11WindowSourceTest, hostileTextsAreBoundedAndDecoded) {
    ASSERT_TRUE(display.startWindowManager());
    startSource();
    TestWindow window(display, QRect(0, 0, 100, 100));
    window.setText("WM_CLASS", std::string("caf\xE9") + '\0' + std::string(100000, 'x'));
    window.setNumbers("_GTK_APPLICATION_ID", "CARDINAL", {1, 2, 3});
    window.setText("_NET_WM_PID", "text");
    window.setNumbers("_NET_WM_STATE", "CARDINAL", std::vector<std::uint32_t>(50000, 0xFFFFFFFF));
    ASSERT_TRUE(window.show());
    ASSERT_TRUE(eventually([&] { return ids().size() == 1; }));
    EXPECT_EQ(info(window).instance, "café");
    EXPECT_EQ(info(window).windowClass, std::string(1024, 'x'));
    EXPECT_EQ(info(window).applicationId, "");
    EXPECT_EQ(info(window).pid, 0);
}

TEST_F(X11WindowSourceTest, leavesOurOwnWindowsOut) {
    ASSERT_TRUE(display.startWindowManager());
    startSource();
    QWidget own;
    own.setGeometry(100, 100, 200, 100);
    own.show();
    ASSERT_TRUE(eventually([&] { return clients->windows().size() == 1; }));
    EXPECT_EQ(ids(), Ids{});
    EXPECT_EQ(source->stackingOrder(), Ids{});
}

TEST_F(X11WindowSourceTest, saysThatTheFocusIsOnAnOwnWindow) {
    ASSERT_TRUE(display.startWindowManager());
    startSource();
    TestWindow other(display, QRect(400, 0, 100, 100));
    ASSERT_TRUE(other.show());
    ASSERT_TRUE(eventually([&] { return ids().size() == 1; }));
    source->activate(other.id());
    ASSERT_TRUE(eventually([&] { return source->activeWindow() == other.id(); }));
    EXPECT_FALSE(source->isOwnWindowActive());
    actives.clear();
    QWidget own;
    own.setGeometry(100, 100, 200, 100);
    own.show();
    ASSERT_TRUE(eventually([&] { return clients->windows().size() == 2; }));
    source->activate(own.winId());
    EXPECT_TRUE(eventually([&] { return source->isOwnWindowActive(); }));
    EXPECT_EQ(source->activeWindow(), std::nullopt);
    source->activate(other.id());
    EXPECT_TRUE(eventually([&] { return source->activeWindow() == other.id(); }));
    EXPECT_FALSE(source->isOwnWindowActive());
    EXPECT_EQ(actives, (Ids{0, other.id()}));
}

TEST_F(X11WindowSourceTest, tellsTheActiveWindowWithoutTheGapBetween) {
    ASSERT_TRUE(display.startWindowManager());
    startSource();
    TestWindow first(display, QRect(0, 0, 100, 100));
    TestWindow second(display, QRect(200, 0, 100, 100));
    ASSERT_TRUE(first.show());
    ASSERT_TRUE(second.show());
    ASSERT_TRUE(eventually([&] { return ids().size() == 2; }));
    source->activate(first.id());
    ASSERT_TRUE(eventually([&] { return source->activeWindow() == first.id(); }));
    actives.clear();
    source->activate(second.id());
    ASSERT_TRUE(eventually([&] { return source->activeWindow() == second.id(); }));
    settle();
    EXPECT_EQ(actives, Ids{second.id()}) << "no moment without a window in between";
    second.destroy();
    first.destroy();
    // openbox goes on naming the last window although that has gone.
    EXPECT_TRUE(eventually([&] { return !source->activeWindow(); }));
}

TEST_F(X11WindowSourceTest, aShortGapIsNotTold) {
    // Without window manager the test plays its part.
    const auto setRoot = [&](const std::string& property, std::uint32_t value) {
        xcb_change_property(display.xcb(), XCB_PROP_MODE_REPLACE, display.root(), display.atom(property),
                            XCB_ATOM_WINDOW, 32, 1, &value);
        xcb_flush(display.xcb());
    };
    TestWindow check(display, QRect(0, 0, 10, 10));
    check.setNumbers("_NET_SUPPORTING_WM_CHECK", "WINDOW", {check.id()});
    setRoot("_NET_SUPPORTING_WM_CHECK", check.id());
    TestWindow window(display, QRect(0, 0, 100, 100));
    setRoot("_NET_CLIENT_LIST", window.id());
    setRoot("_NET_ACTIVE_WINDOW", window.id());
    startSource();
    ASSERT_EQ(source->activeWindow(), window.id());
    setRoot("_NET_ACTIVE_WINDOW", 0);
    VirtualDisplay::runFor(60);
    setRoot("_NET_ACTIVE_WINDOW", window.id());
    VirtualDisplay::runFor(300);
    EXPECT_EQ(actives, Ids{});
    setRoot("_NET_ACTIVE_WINDOW", 0);
    EXPECT_TRUE(eventually([&] { return actives == Ids{0}; }));
    EXPECT_EQ(source->activeWindow(), std::nullopt);
}

TEST_F(X11WindowSourceTest, activatingRaisesUnminimisesAndChangesDesktop) {
    ASSERT_TRUE(display.startWindowManager());
    startSource();
    TestWindow away(display, QRect(0, 0, 100, 100));
    ASSERT_TRUE(away.show());
    ASSERT_TRUE(eventually([&] { return ids().size() == 1; }));
    ASSERT_EQ(display.run({"xdotool", "set_desktop_for_window", std::to_string(away.id()), "1"}), 0);
    ASSERT_TRUE(eventually([&] { return !display.isViewable(away.id()); }));
    source->activate(away.id());
    EXPECT_TRUE(eventually([&] { return display.isViewable(away.id()); }));
    EXPECT_EQ(display.numbers(display.root(), "_NET_CURRENT_DESKTOP"), (std::vector<std::uint32_t>{1}));
    ASSERT_EQ(display.run({"xdotool", "windowminimize", std::to_string(away.id())}), 0);
    ASSERT_TRUE(eventually([&] { return !display.isViewable(away.id()); }));
    source->activate(away.id());
    EXPECT_TRUE(
        eventually([&] { return display.isViewable(away.id()) && source->activeWindow() == away.id(); }));

    TestWindow over(display, QRect(0, 0, 100, 100));
    ASSERT_TRUE(over.show());
    ASSERT_TRUE(eventually([&] { return source->stackingOrder() == Ids{away.id(), over.id()}; }));
    source->activate(away.id());
    EXPECT_TRUE(eventually([&] { return source->stackingOrder() == Ids{over.id(), away.id()}; }));
}

TEST_F(X11WindowSourceTest, closingAsksTheWindow) {
    ASSERT_TRUE(display.startWindowManager());
    startSource();
    TestWindow window(display, QRect(0, 0, 100, 100));
    ASSERT_TRUE(window.show());
    ASSERT_TRUE(eventually([&] { return ids().size() == 1; }));
    source->close(window.id());
    EXPECT_TRUE(eventually([&] { return window.closeAsked(); }));
}

TEST_F(X11WindowSourceTest, closingAsksTheWindowWithoutWindowManagerToo) {
    startSource();
    TestWindow window(display, QRect(0, 0, 100, 100));
    source->close(window.id());
    EXPECT_TRUE(eventually([&] { return window.closeAsked(); }));
}

TEST_F(X11WindowSourceTest, windowsThatVanishInTheMiddleAreSkipped) {
    ASSERT_TRUE(display.startWindowManager());
    startSource();
    TestWindow staying(display, QRect(0, 0, 100, 100));
    ASSERT_TRUE(staying.show());
    ASSERT_TRUE(eventually([&] { return ids().size() == 1; }));
    for (int round = 0; round < 20; ++round) {
        TestWindow passing(display, QRect(200, 0, 100, 100));
        xcb_map_window(passing.xcb(), passing.id());
        xcb_flush(passing.xcb());
        VirtualDisplay::runFor(round % 5);
        passing.destroy();
        source->activate(passing.id());
        source->close(passing.id());
    }
    EXPECT_TRUE(eventually([&] { return ids() == Ids{staying.id()}; }));
    settle();
    EXPECT_EQ(ids(), Ids{staying.id()});
}

TEST_F(X11WindowSourceTest, aListThatNamesWindowsThatDoNotExistIsHarmless) {
    TestWindow check(display, QRect(0, 0, 10, 10));
    check.setNumbers("_NET_SUPPORTING_WM_CHECK", "WINDOW", {check.id()});
    const std::uint32_t checkId = check.id();
    xcb_change_property(display.xcb(), XCB_PROP_MODE_REPLACE, display.root(),
                        display.atom("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW, 32, 1, &checkId);
    const TestWindow window(display, QRect(0, 0, 100, 100));
    const std::uint32_t list[] = {0, 0x7FFFFFFF, window.id(), window.id(), 0xFFFFFFFF};
    xcb_change_property(display.xcb(), XCB_PROP_MODE_REPLACE, display.root(),
                        display.atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW, 32, 5, list);
    xcb_flush(display.xcb());
    startSource();
    EXPECT_EQ(ids(), Ids{window.id()});
}

TEST_F(X11WindowSourceTest, aWindowManagerThatComesLaterIsPickedUp) {
    TestWindow window(display, QRect(0, 0, 100, 100));
    startSource();
    EXPECT_EQ(ids(), Ids{});
    ASSERT_TRUE(window.show());
    settle();
    EXPECT_EQ(ids(), Ids{});
    ASSERT_TRUE(display.startWindowManager());
    EXPECT_TRUE(eventually([&] { return ids() == Ids{window.id()}; }));
}

TEST_F(X11WindowSourceTest, aRestartOfTheWindowManagerIsNoMassExit) {
    ASSERT_TRUE(display.startWindowManager());
    startSource();
    TestWindow first(display, QRect(0, 0, 100, 100));
    TestWindow second(display, QRect(200, 0, 100, 100));
    ASSERT_TRUE(first.show());
    ASSERT_TRUE(second.show());
    ASSERT_TRUE(eventually([&] { return ids().size() == 2; }));
    bool emptied = false;
    QObject::connect(source.get(), &WindowSource::windowsChanged, source.get(),
                     [&] { emptied = emptied || ids().size() != 2; });
    display.stopWindowManager();
    ASSERT_TRUE(eventually([&] { return !clients->managed(); }));
    ASSERT_TRUE(display.startWindowManager());
    ASSERT_TRUE(eventually([&] { return clients->managed(); }));
    VirtualDisplay::runFor(800);
    EXPECT_FALSE(emptied);
    EXPECT_EQ(ids().size(), 2U);
    TestWindow third(display, QRect(400, 0, 100, 100));
    ASSERT_TRUE(third.show());
    EXPECT_TRUE(eventually([&] { return ids().size() == 3; })) << "the new one is followed";
}

TEST_F(X11WindowSourceTest, withoutWindowManagerTheListEmptiesAfterTheGrace) {
    ASSERT_TRUE(display.startWindowManager());
    startSource();
    TestWindow first(display, QRect(0, 0, 100, 100));
    TestWindow second(display, QRect(200, 0, 100, 100));
    ASSERT_TRUE(first.show());
    ASSERT_TRUE(second.show());
    ASSERT_TRUE(eventually([&] { return ids().size() == 2; }));
    display.stopWindowManager();
    ASSERT_TRUE(eventually([&] { return !clients->managed(); }));
    EXPECT_EQ(ids().size(), 2U);
    first.destroy();
    EXPECT_TRUE(eventually([&] { return ids() == Ids{second.id()}; })) << "what goes meanwhile is taken off";
    EXPECT_TRUE(eventually([&] { return ids().empty(); }));
}

TEST_F(X11WindowSourceTest, followsARealProgram) {
    ASSERT_TRUE(display.startWindowManager());
    startSource();
    const pid_t process = display.start({"xterm", "-class", "QuillaryTest"});
    ASSERT_GT(process, 0);
    ASSERT_TRUE(eventually([&] { return source->windows().size() == 1; }));
    const auto window = source->windows().front();
    EXPECT_EQ(window.windowClass, "QuillaryTest");
    EXPECT_EQ(window.pid, process);
    // A terminal forgets the request that comes before its shell has started: ask until it has heard.
    EXPECT_TRUE(eventually([&] {
        source->close(window.id);
        return source->windows().empty();
    }));
}

} // namespace quillary
