#include "tests/desktop/DesktopFixture.h"
#include "tests/linux/BusServices.h"
#include "tests/x11/TestWindow.h"

#include <QJsonArray>

#include <chrono>
#include <cstdlib>

namespace quillary::test {

namespace {

using Clock = std::chrono::steady_clock;

const QColor red(220, 20, 20);
const QColor green(20, 200, 20);
const QRect leftScreen(0, 0, 1280, 900);
const QPoint farAway(640, 300);
// Of two icons of 48 points that don't grow, on LEFT a panel of 146 × 125 at 567, 775.
const QRect iconInPlace(589, 833, 48, 48);
const QPoint redIcon(613, 857);
const QPoint greenIcon(667, 857);
// Between the row's end and its first icon.
const QPoint freeSpace(584, 857);
const QPoint rightFreeSpace(1784, 757);
const std::string plain = R"("magnification":"off")";

constexpr xcb_keysym_t returnKey = 0xff0d;
constexpr xcb_keysym_t escapeKey = 0xff1b;
constexpr xcb_keysym_t leftKeySym = 0xff51;
constexpr xcb_keysym_t rightKeySym = 0xff53;
constexpr xcb_keysym_t downKey = 0xff54;
constexpr xcb_keysym_t endKey = 0xff57;

/// A bus of the test's own, while the object lives.
class PrivateBus {
public:
    PrivateBus() : m_display(std::getenv("DISPLAY")), m_runtime(std::getenv("XDG_RUNTIME_DIR")) {
        g_test_dbus_up(m_daemon);
        // It clears what would lead programs to another session.
        setenv("DISPLAY", m_display.c_str(), 1);
        setenv("XDG_RUNTIME_DIR", m_runtime.c_str(), 1);
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus() { g_test_dbus_stop(m_daemon); }

private:
    std::string m_display;
    std::string m_runtime;
    GTestDBus* m_daemon = g_test_dbus_new(G_TEST_DBUS_NONE);
};

class MenuTest : public DesktopFixture {
protected:
    void startWith(const std::string& options) {
        items = {home.install("red", red), home.install("green", green)};
        home.writeSettings(
            settingsJson({dockJson(leftKey, items, options), dockJson(rightKey, items, options)}));
        startWithDocks(2);
    }
    void startShown() {
        startWith(plain);
        ASSERT_TRUE(eventually([&] { return colourBox(red, leftScreen) == iconInPlace; }));
    }
    /// The places of the program's menus, in the order in which they were opened.
    [[nodiscard]] std::vector<QRect> menus() const {
        std::vector<QRect> result;
        for (const auto window : popups()) {
            result.push_back(display.geometry(window));
        }
        return result;
    }
    [[nodiscard]] bool menusAre(std::size_t count) const {
        return eventually([&] { return menus().size() == count; });
    }
    /// Right-clicks there; whether one menu is open then.
    [[nodiscard]] bool openMenu(QPoint place) {
        display.movePointer(place);
        // The dock must know where the pointer is before the button.
        VirtualDisplay::runFor(50);
        display.click(place, 3);
        return popupsTakeKeys(1);
    }
    void type(std::initializer_list<xcb_keysym_t> keys) {
        for (const auto key : keys) {
            display.typeKey(key);
        }
    }
    /// Waits until the settings file says so of LEFT's dock.
    [[nodiscard]] bool saved(const char* member, const QJsonValue& value) const {
        return eventually([&] { return home.dockSettings(leftKey).value(QLatin1String(member)) == value; });
    }
    [[nodiscard]] bool savedItems(const std::vector<std::string>& paths) const {
        QJsonArray wanted;
        for (const auto& path : paths) {
            wanted.append(QString::fromStdString(path));
        }
        return saved("items", wanted);
    }
    [[nodiscard]] bool isHidden(xcb_window_t dock) const { return inputShape(dock).isEmpty(); }
    pid_t startApplication(const std::string& id, int x) {
        const auto process =
            display.start({QUILLARY_TEST_APPLICATION, id, std::to_string(x), "100", "300", "200"});
        EXPECT_TRUE(eventually([&] { return windowOf(id) != XCB_WINDOW_NONE; }));
        return process;
    }

    std::vector<std::string> items;
};

} // namespace

TEST_F(MenuTest, positionLeftByThePointerMovesTheDockAndIsSaved) {
    startShown();
    ASSERT_TRUE(openMenu(freeSpace));
    const QRect menu = menus().front();
    EXPECT_TRUE(leftScreen.contains(menu)) << testing::PrintToString(menu);
    // The first line is "Position".
    display.movePointer(menu.topLeft() + QPoint(40, 10));
    display.movePointer(menu.topLeft() + QPoint(42, 12));
    ASSERT_TRUE(menusAre(2));
    auto both = menus();
    std::erase(both, menu);
    ASSERT_EQ(both.size(), 1U);
    const QRect positions = both.front();
    // The second of its four lines, by the way that keeps it open: along the first line, then down.
    const QPoint wanted(positions.x() + 40, positions.y() + positions.height() * 3 / 8);
    for (int x = menu.x() + 42; x < wanted.x(); x += 15) {
        display.movePointer(QPoint(x, menu.y() + 12));
    }
    display.movePointer(wanted - QPoint(0, 5));
    display.movePointer(wanted);
    VirtualDisplay::runFor(100);
    display.click(wanted);
    EXPECT_TRUE(menusAre(0));
    EXPECT_TRUE(saved("edge", QLatin1String("left")));
    EXPECT_TRUE(eventually([&] {
        const auto now = places();
        return !now.empty() && now.front().x() == 0;
    }));
    EXPECT_EQ(home.dockSettings(rightKey).value(QLatin1String("edge")).toString(QLatin1String("bottom")),
              QLatin1String("bottom"));
}

TEST_F(MenuTest, arrowsAndReturnChooseAPosition) {
    startShown();
    ASSERT_TRUE(openMenu(freeSpace));
    type({downKey, rightKeySym});
    ASSERT_TRUE(menusAre(2));
    type({downKey, downKey, returnKey});
    EXPECT_TRUE(menusAre(0));
    EXPECT_TRUE(saved("edge", QLatin1String("right")));
    EXPECT_TRUE(eventually([&] {
        const auto now = places();
        return !now.empty() && now.front().right() == 1279;
    }));
}

TEST_F(MenuTest, escapeClosesTheSubmenuAndThenTheMenuAndNothingIsChosen) {
    startShown();
    const auto before = Home::read(home.settingsFile());
    ASSERT_TRUE(openMenu(freeSpace));
    type({downKey, rightKeySym});
    ASSERT_TRUE(menusAre(2));
    type({leftKeySym});
    EXPECT_TRUE(menusAre(1));
    type({escapeKey});
    EXPECT_TRUE(menusAre(0));
    EXPECT_EQ(Home::read(home.settingsFile()), before);
}

TEST_F(MenuTest, aClickElsewhereClosesTheMenu) {
    startShown();
    ASSERT_TRUE(openMenu(freeSpace));
    display.click(farAway);
    EXPECT_TRUE(menusAre(0));
}

TEST_F(MenuTest, anItemIsRemovedAndAnotherProgramsIsKept) {
    startShown();
    ASSERT_TRUE(openMenu(redIcon));
    type({downKey, downKey, returnKey});
    EXPECT_TRUE(savedItems({items[1]}));
    EXPECT_TRUE(eventually([&] { return colourBox(red, leftScreen).isNull(); }));

    // It runs now, so it stands behind the separator, at the right end of a panel of 146 + 13 + 6.
    startApplication("red", 100);
    ASSERT_TRUE(eventually([&] { return !colourBox(red, leftScreen).isNull(); }));
    VirtualDisplay::runFor(300);
    ASSERT_TRUE(openMenu(colourBox(red, leftScreen).center()));
    type({downKey, downKey, returnKey});
    EXPECT_TRUE(savedItems({items[1], items[0]}));
}

TEST_F(MenuTest, openStartsTheApplicationAndQuitClosesAllItsWindows) {
    startShown();
    ASSERT_TRUE(openMenu(redIcon));
    // By the pointer: its first line.
    const QPoint line = menus().front().topLeft() + QPoint(40, 12);
    display.movePointer(line - QPoint(0, 2));
    display.movePointer(line);
    display.click(line);
    ASSERT_TRUE(eventually([&] { return windowOf("red") != XCB_WINDOW_NONE; })) << program.log();
    TestWindow second(display, QRect(500, 100, 200, 200));
    second.setClass("red", "red");
    ASSERT_TRUE(second.show());
    TestWindow other(display, QRect(800, 100, 200, 200));
    other.setClass("green", "green");
    ASSERT_TRUE(other.show());

    // "Quit" is the line after "Show in Finder".
    ASSERT_TRUE(eventually([&] { return display.numbers(display.root(), "_NET_CLIENT_LIST").size() == 5; }))
        << "two docks and three windows";
    VirtualDisplay::runFor(300);
    ASSERT_TRUE(openMenu(redIcon));
    type({downKey, downKey, downKey, downKey, returnKey});
    EXPECT_TRUE(eventually([&] { return second.closeAsked(); }));
    EXPECT_TRUE(menusAre(0));
    EXPECT_FALSE(other.closeAsked()) << "another application's";
}

TEST_F(MenuTest, autoHideAndShowRunningAppsAreToggled) {
    startShown();
    ASSERT_TRUE(openMenu(freeSpace));
    type({downKey, downKey, downKey, downKey, downKey, returnKey});
    EXPECT_TRUE(saved("showRunning", false));
    ASSERT_TRUE(menusAre(0));
    ASSERT_TRUE(openMenu(freeSpace));
    type({downKey, downKey, downKey, downKey, returnKey});
    EXPECT_TRUE(saved("autoHide", true));
    EXPECT_TRUE(menusAre(0));
}

TEST_F(MenuTest, showInFinderAsksTheFileManager) {
    const PrivateBus bus;
    BusServices services;
    services.own("org.freedesktop.FileManager1");
    startShown();
    ASSERT_TRUE(openMenu(greenIcon));
    type({downKey, downKey, downKey, returnKey});
    ASSERT_TRUE(eventually([&] { return !services.calls().empty(); })) << program.log();
    EXPECT_TRUE(services.calls().front().starts_with("ShowItems(['file://" + items[1] + "'], 'quillary-"))
        << services.calls().front();
}

TEST_F(MenuTest, onlyOneMenuIsOpenAtATime) {
    startShown();
    ASSERT_TRUE(openMenu(freeSpace));
    const QRect first = menus().front();
    display.movePointer(rightFreeSpace);
    VirtualDisplay::runFor(50);
    display.click(rightFreeSpace, 3);
    EXPECT_TRUE(eventually([&] {
        const auto now = menus();
        return now.size() == 1 && now.front() != first && QRect(1280, 0, 1120, 800).contains(now.front());
    })) << testing::PrintToString(menus());
    type({escapeKey});
    EXPECT_TRUE(menusAre(0));
}

TEST_F(MenuTest, aDockWaitsForItsMenuBeforeItHides) {
    startWith(plain + R"(,"autoHide":true)");
    ASSERT_TRUE(eventually([&] { return isHidden(leftDock()); }));
    display.movePointer(QPoint(640, 899));
    ASSERT_TRUE(eventually([&] { return colourBox(red, leftScreen) == iconInPlace; }));
    ASSERT_TRUE(openMenu(freeSpace));
    display.movePointer(farAway);
    EXPECT_FALSE(VirtualDisplay::waitUntil([&] { return isHidden(leftDock()); }, 1500));

    const auto closed = Clock::now();
    type({escapeKey});
    ASSERT_TRUE(menusAre(0));
    EXPECT_TRUE(eventually([&] { return isHidden(leftDock()); }));
    EXPECT_GE(Clock::now() - closed, std::chrono::milliseconds(600));
}

TEST_F(MenuTest, aMenuTakesNoFocusFromTheActiveWindow) {
    startShown();
    TestWindow window(display, QRect(300, 200, 400, 300));
    window.setClass("active", "active");
    ASSERT_TRUE(window.show());
    ASSERT_TRUE(eventually([&] { return isActive(window.id()); }));
    ASSERT_TRUE(openMenu(freeSpace));
    EXPECT_TRUE(isActive(window.id()));
    type({endKey, escapeKey});
    ASSERT_TRUE(menusAre(0));
    EXPECT_FALSE(VirtualDisplay::waitUntil([&] { return !isActive(window.id()); }, 300));
}

} // namespace quillary::test
