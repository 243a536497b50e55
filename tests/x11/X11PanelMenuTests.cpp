#include "platform/qt/QtMenu.h"
#include "tests/x11/PanelFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QMenu>
#include <QWindow>

#include <algorithm>

namespace quillary {

using test::TestWindow;
using test::VirtualDisplay;

namespace {

// Keysyms (X11 protocol, appendix A).
constexpr xcb_keysym_t keyReturn = 0xff0d;
constexpr xcb_keysym_t keyEscape = 0xff1b;
constexpr xcb_keysym_t keyLeft = 0xff51;
constexpr xcb_keysym_t keyUp = 0xff52;
constexpr xcb_keysym_t keyRight = 0xff53;
constexpr xcb_keysym_t keyDown = 0xff54;
constexpr xcb_keysym_t keyControl = 0xffe3;

class X11PanelMenuTest : public test::PanelFixture {
protected:
    void startMenus(const QRect& frame = QRect(300, 780, 600, 120)) {
        ASSERT_TRUE(display.startWindowManager());
        startPanel();
        present(frame);
        display.movePointer(QPoint(20, 20));
        settle();
    }
    [[nodiscard]] ClosureMenuItem entry(const std::string& title) {
        return {title, false, [this, title] { log.push_back(title); }};
    }
    [[nodiscard]] Menu sampleMenu() {
        Menu menu;
        menu.push_back(entry("Open & Close_it"));
        menu.push_back(entry("Hidden"));
        menu.back().enabled = false;
        menu.push_back(ClosureMenuItem::separator());
        menu.push_back(ClosureMenuItem::submenu("Position", {entry("Bottom"), entry("Left")}));
        menu.push_back(ClosureMenuItem("Auto-hide", true, [this] { log.emplace_back("Auto-hide"); }));
        menu.push_back(entry("Quit"));
        menu.back().keyEquivalent = 'q';
        return menu;
    }
    void open(QPoint location, X11PanelWindow* over = nullptr) {
        (over == nullptr ? panel.get() : over)->popUpMenu(sampleMenu(), location, [this] {
            log.emplace_back("closed");
        });
    }
    /// The menus that are seen, the first opened first.
    [[nodiscard]] static std::vector<QMenu*> shown() {
        std::vector<QMenu*> menus;
        for (auto* candidate : QApplication::topLevelWidgets()) {
            auto* menu = qobject_cast<QMenu*>(candidate);
            if (menu != nullptr && menu->isVisible()) {
                menus.push_back(menu);
            }
        }
        std::sort(menus.begin(), menus.end(),
                  [](const QMenu* a, const QMenu* b) { return a->parentWidget() < b->parentWidget(); });
        return menus;
    }
    [[nodiscard]] bool openSeen() {
        return eventually([this] {
            return !shown().empty() && display.isViewable(xcb_window_t(shown().front()->winId()));
        });
    }
    [[nodiscard]] static QPoint centreOf(const QMenu& menu, int line) {
        return menu.mapToGlobal(menu.actionGeometry(menu.actions().at(line)).center());
    }
    [[nodiscard]] bool logs(const std::vector<std::string>& lines) {
        return eventually([&] { return log == lines; });
    }
    [[nodiscard]] static QString activeTitle(const QMenu& menu) {
        return menu.activeAction() == nullptr ? QString() : menu.activeAction()->text();
    }

    std::vector<std::string> log;
};

} // namespace

TEST_F(X11PanelMenuTest, showsTitlesChecksAndShortcutsAsTheyStand) {
    startMenus();
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    const auto actions = shown().front()->actions();
    ASSERT_EQ(actions.size(), 6);
    EXPECT_EQ(actions[0]->text(), QStringLiteral("Open && Close_it"));
    EXPECT_TRUE(actions[0]->isEnabled());
    EXPECT_FALSE(actions[0]->isCheckable());
    EXPECT_FALSE(actions[1]->isEnabled());
    EXPECT_TRUE(actions[2]->isSeparator());
    ASSERT_NE(actions[3]->menu(), nullptr);
    EXPECT_EQ(actions[3]->menu()->actions().size(), 2);
    EXPECT_TRUE(actions[4]->isChecked());
    EXPECT_EQ(actions[5]->shortcut().toString(), QStringLiteral("Ctrl+Q"));
    EXPECT_TRUE(actions[5]->isShortcutVisibleInContextMenu());
}

TEST_F(X11PanelMenuTest, aClickRunsTheHandlerAfterTheMenuHasGoneThenClosed) {
    startMenus();
    bool menuSeen = true;
    bool openWhenRun = true;
    Menu menu{ClosureMenuItem("Only", false, [&] {
        menuSeen = !shown().empty();
        openWhenRun = QtMenu::isOpen();
        log.emplace_back("Only");
    })};
    panel->popUpMenu(std::move(menu), QPoint(10, 10), [this] { log.emplace_back("closed"); });
    ASSERT_TRUE(openSeen());
    display.click(centreOf(*shown().front(), 0));
    EXPECT_TRUE(logs({"Only", "closed"}));
    EXPECT_FALSE(menuSeen);
    EXPECT_FALSE(openWhenRun);
    settle();
    EXPECT_EQ(log, (std::vector<std::string>{"Only", "closed"}));
}

TEST_F(X11PanelMenuTest, aDisabledEntryAndASeparatorRunNothing) {
    startMenus();
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    display.click(centreOf(*shown().front(), 1));
    settle();
    EXPECT_EQ(log, (std::vector<std::string>{}));
    display.typeKey(keyEscape);
    EXPECT_TRUE(logs({"closed"}));
}

TEST_F(X11PanelMenuTest, aClickElsewhereClosesAndReachesNothing) {
    startMenus();
    TestWindow other(display, QRect(300, 100, 400, 300));
    ASSERT_TRUE(other.show());
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    display.click(QPoint(500, 200));
    EXPECT_TRUE(logs({"closed"}));
    EXPECT_TRUE(shown().empty());
    settle();
    EXPECT_EQ(other.clicks(), 0);
    EXPECT_EQ(log, (std::vector<std::string>{"closed"}));
    display.click(QPoint(500, 200));
    EXPECT_TRUE(eventually([&] { return other.clicks() == 1; })) << "the pointer is free again";
}

TEST_F(X11PanelMenuTest, aClickOnTheOtherMonitorCloses) {
    startMenus();
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    display.click(QPoint(2000, 300));
    EXPECT_TRUE(logs({"closed"}));
}

TEST_F(X11PanelMenuTest, theKeyboardWorksWithoutFocus) {
    startMenus();
    TestWindow other(display, QRect(300, 100, 400, 300));
    ASSERT_TRUE(other.show());
    display.click(QPoint(400, 200));
    ASSERT_TRUE(eventually([&] {
        return display.numbers(display.root(), "_NET_ACTIVE_WINDOW") ==
               std::vector<std::uint32_t>{other.id()};
    }));
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    display.typeKey(keyUp);
    ASSERT_TRUE(eventually([] { return activeTitle(*shown().front()) == QStringLiteral("Quit"); }));
    display.typeKey(keyUp);
    display.typeKey(keyUp);
    ASSERT_TRUE(eventually([] { return activeTitle(*shown().front()) == QStringLiteral("Position"); }));
    display.typeKey(keyRight);
    ASSERT_TRUE(eventually([] { return shown().size() == 2; }));
    ASSERT_TRUE(eventually([] { return activeTitle(*shown().back()) == QStringLiteral("Bottom"); }));
    display.typeKey(keyLeft);
    ASSERT_TRUE(eventually([] { return shown().size() == 1; }));
    display.typeKey(keyRight);
    ASSERT_TRUE(eventually([] { return shown().size() == 2; }));
    display.typeKey(keyDown);
    display.typeKey(keyReturn);
    EXPECT_TRUE(logs({"Left", "closed"}));
    EXPECT_EQ(display.numbers(display.root(), "_NET_ACTIVE_WINDOW"), std::vector<std::uint32_t>{other.id()});
}

TEST_F(X11PanelMenuTest, typingALetterGoesToTheNextTitleThatBeginsWithIt) {
    startMenus();
    Menu menu;
    menu.push_back(entry("Show in Finder"));
    menu.push_back(ClosureMenuItem::submenu("Style", {entry("Glass")}));
    menu.push_back(entry("Quit"));
    menu.push_back(entry("Settings…"));
    panel->popUpMenu(std::move(menu), QPoint(10, 10), [this] { log.emplace_back("closed"); });
    ASSERT_TRUE(openSeen());
    const auto goes = [&](const QString& title) {
        display.typeKey('s');
        return eventually([&] { return activeTitle(*shown().front()) == title; });
    };
    EXPECT_TRUE(goes(QStringLiteral("Show in Finder")));
    EXPECT_TRUE(goes(QStringLiteral("Style")));
    EXPECT_TRUE(goes(QStringLiteral("Settings…")));
    EXPECT_TRUE(goes(QStringLiteral("Show in Finder")));
    EXPECT_EQ(shown().size(), 1U);
    display.typeKey('x');
    display.typeKey('q');
    EXPECT_TRUE(eventually([&] { return activeTitle(*shown().front()) == QStringLiteral("Quit"); }));
    EXPECT_EQ(log, (std::vector<std::string>{}));
    display.typeKey(keyReturn);
    EXPECT_TRUE(logs({"Quit", "closed"}));
}

TEST_F(X11PanelMenuTest, controlAndTheLetterChooseTheEntryFromASubmenuToo) {
    startMenus();
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    display.typeKey('q', keyControl);
    EXPECT_TRUE(logs({"Quit", "closed"}));
    log.clear();
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    display.typeKey('p');
    display.typeKey(keyRight);
    ASSERT_TRUE(eventually([] { return shown().size() == 2; }));
    display.typeKey('q', keyControl);
    EXPECT_TRUE(logs({"Quit", "closed"}));
    EXPECT_TRUE(shown().empty());
}

TEST_F(X11PanelMenuTest, escapeClosesOneMenuAfterTheOther) {
    startMenus();
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    display.typeKey('p');
    display.typeKey(keyRight);
    ASSERT_TRUE(eventually([] { return shown().size() == 2; }));
    display.typeKey(keyEscape);
    ASSERT_TRUE(eventually([] { return shown().size() == 1; }));
    EXPECT_EQ(log, (std::vector<std::string>{}));
    display.typeKey(keyEscape);
    EXPECT_TRUE(logs({"closed"}));
}

TEST_F(X11PanelMenuTest, openingAnotherClosesTheFirst) {
    startMenus();
    test::ColourWidget second;
    X11PanelWindow other(second, *connection, *compositor, *screens);
    other.setFrame(QRect(1400, 680, 600, 120));
    other.orderFront();
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    other.popUpMenu({entry("Other")}, QPoint(10, 10), [this] { log.emplace_back("other closed"); });
    EXPECT_EQ(log, (std::vector<std::string>{"closed"}));
    ASSERT_TRUE(openSeen());
    ASSERT_EQ(shown().size(), 1U);
    EXPECT_EQ(shown().front()->actions().size(), 1);
    display.typeKey(keyDown);
    display.typeKey(keyReturn);
    EXPECT_TRUE(logs({"closed", "Other", "other closed"}));
}

TEST_F(X11PanelMenuTest, aRightClickOnAnotherDockOpensThatOnesAndALeftClickOnlyCloses) {
    startMenus();
    test::ColourWidget second;
    X11PanelWindow other(second, *connection, *compositor, *screens);
    other.setFrame(QRect(1400, 680, 600, 120));
    other.orderFront();
    second.rightPressed = [&](QPoint location) {
        other.popUpMenu({entry("Other")}, location, [this] { log.emplace_back("other closed"); });
    };
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    display.click(QPoint(1500, 750), 3);
    EXPECT_TRUE(eventually([] { return shown().size() == 1 && shown().front()->actions().size() == 1; }));
    EXPECT_EQ(log, (std::vector<std::string>{"closed"}));
    settle();
    ASSERT_EQ(shown().size(), 1U) << "the release does not close it";
    display.typeKey(keyEscape);
    EXPECT_TRUE(logs({"closed", "other closed"}));
    log.clear();
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    const int presses = second.presses;
    display.click(QPoint(1500, 750));
    EXPECT_TRUE(logs({"closed"}));
    settle();
    EXPECT_EQ(second.presses, presses);
}

TEST_F(X11PanelMenuTest, aRightClickOnTheDockOpensItWithTheButtonHeld) {
    startMenus();
    widget->rightPressed = [this](QPoint location) { open(location); };
    display.movePointer(QPoint(500, 850));
    display.pressButton(3);
    ASSERT_TRUE(openSeen());
    display.releaseButton(3);
    settle();
    ASSERT_EQ(shown().size(), 1U);
    EXPECT_EQ(log, (std::vector<std::string>{}));
    display.click(centreOf(*shown().front(), 5));
    EXPECT_TRUE(logs({"Quit", "closed"}));
}

TEST_F(X11PanelMenuTest, standsWhollyOnThePanelsMonitorAtEveryEdge) {
    startMenus();
    struct Case {
        QRect panel;
        QPoint location;
        QRect monitor;
    };
    const QRect left(0, 0, 1280, 900);
    const QRect right(1280, 0, 1120, 800);
    const Case cases[] = {
        {{340, 780, 600, 120}, {300, 100}, left},   {{0, 150, 120, 600}, {60, 590}, left},
        {{1160, 150, 120, 600}, {110, 590}, left},  {{340, 0, 600, 120}, {590, 60}, left},
        {{1540, 680, 600, 120}, {300, 115}, right}, {{1280, 100, 120, 600}, {2, 590}, right},
        {{2280, 100, 120, 600}, {115, 2}, right},   {{1540, 0, 600, 120}, {2, 2}, right},
    };
    for (const auto& [frame, location, monitor] : cases) {
        panel->setFrame(frame);
        ASSERT_TRUE(eventually([&] { return place() == frame; }));
        log.clear();
        open(location);
        ASSERT_TRUE(openSeen());
        const auto menu = display.geometry(xcb_window_t(shown().front()->winId()));
        EXPECT_TRUE(monitor.contains(menu))
            << menu.x() << "," << menu.y() << " " << menu.width() << "×" << menu.height();
        const QPoint corner = frame.topLeft() + location;
        EXPECT_TRUE(menu.adjusted(-1, -1, 1, 1).contains(corner)) << "it opens at the point";
        display.typeKey('p');
        display.typeKey(keyRight);
        ASSERT_TRUE(eventually([] { return shown().size() == 2; }));
        const auto submenu = display.geometry(xcb_window_t(shown().back()->winId()));
        EXPECT_TRUE(monitor.contains(submenu)) << submenu.x() << "," << submenu.y();
        display.typeKey(keyEscape);
        display.typeKey(keyEscape);
        ASSERT_TRUE(logs({"closed"}));
    }
}

TEST_F(X11PanelMenuTest, opensUpwardsAtTheBottomEdge) {
    startMenus();
    open(QPoint(100, 60));
    ASSERT_TRUE(openSeen());
    const auto menu = display.geometry(xcb_window_t(shown().front()->winId()));
    EXPECT_EQ(menu.x(), 400);
    EXPECT_EQ(menu.y() + menu.height(), 840);
}

TEST_F(X11PanelMenuTest, isPlacedByTheScreensAsTheyAreNow) {
    startMenus();
    // As if the toolkit still believed in a larger monitor.
    const QRect frame(300, 100, 500, 400);
    QtMenu::popUp(sampleMenu(), {QPoint(795, 495), frame}, *panel, [] {});
    ASSERT_TRUE(openSeen());
    const auto menu = display.geometry(xcb_window_t(shown().front()->winId()));
    EXPECT_EQ(menu.topLeft() + QPoint(menu.width(), menu.height()), QPoint(795, 495));
    display.typeKey('p');
    display.typeKey(keyRight);
    ASSERT_TRUE(eventually([] { return shown().size() == 2; }));
    EXPECT_TRUE(frame.contains(display.geometry(xcb_window_t(shown().back()->winId()))));
}

TEST_F(X11PanelMenuTest, aTitleWiderThanTheScreenIsShortened) {
    startMenus();
    panel->popUpMenu({entry(std::string(5000, 'x') + "\tCtrl+X\n")}, QPoint(10, 10), [] {});
    ASSERT_TRUE(openSeen());
    EXPECT_LE(shown().front()->width(), 1280);
    EXPECT_FALSE(shown().front()->actions().front()->text().contains(u'\t'));
}

TEST_F(X11PanelMenuTest, isOpaqueAndAboveTheDock) {
    startMenus();
    ASSERT_TRUE(display.startCompositor());
    widget->colour = QColor(255, 0, 0, 128);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(1, 2, 3));
    palette.setColor(QPalette::Base, QColor(1, 2, 3));
    palette.setColor(QPalette::Button, QColor(1, 2, 3));
    QApplication::setPalette(palette);
    open(QPoint(100, 60));
    ASSERT_TRUE(openSeen());
    panel->orderFront();
    settle();
    auto* menu = shown().front();
    EXPECT_EQ(menu->windowHandle()->format().alphaBufferSize() > 0, false);
    const QRect line = menu->actionGeometry(menu->actions().at(0));
    const QPoint background = menu->mapToGlobal(line.topRight() - QPoint(12, -line.height() / 2));
    EXPECT_TRUE(eventually([&] {
        const QColor colour(display.pixel(background));
        return colour.red() < 40 && colour.green() < 40 && colour.blue() < 40;
    })) << QColor(display.pixel(background)).name().toStdString();
}

TEST_F(X11PanelMenuTest, anEntryMayDestroyThePanel) {
    startMenus();
    Menu menu;
    menu.push_back(ClosureMenuItem("Go", false, [this] {
        panel.reset();
        widget.reset();
        log.emplace_back("gone");
    }));
    panel->popUpMenu(std::move(menu), QPoint(10, 10), [this] { log.emplace_back("closed"); });
    ASSERT_TRUE(openSeen());
    display.click(centreOf(*shown().front(), 0));
    EXPECT_TRUE(logs({"gone", "closed"}));
    settle();
}

TEST_F(X11PanelMenuTest, destroyingThePanelTakesTheMenuAway) {
    startMenus();
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    panel.reset();
    EXPECT_TRUE(shown().empty());
    EXPECT_FALSE(QtMenu::isOpen());
    settle();
    EXPECT_EQ(log, (std::vector<std::string>{}));
    TestWindow other(display, QRect(300, 100, 400, 300));
    ASSERT_TRUE(other.show());
    display.click(QPoint(500, 200));
    EXPECT_TRUE(eventually([&] { return other.clicks() == 1; })) << "the pointer is free again";
}

TEST_F(X11PanelMenuTest, closingThePanelTakesTheMenuAway) {
    startMenus();
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    panel->close();
    EXPECT_TRUE(shown().empty());
    settle();
    EXPECT_EQ(log, (std::vector<std::string>{}));
    open(QPoint(10, 10));
    EXPECT_TRUE(shown().empty());
}

TEST_F(X11PanelMenuTest, closedOfTheFirstMayDestroyThePanelOfTheNext) {
    startMenus();
    test::ColourWidget second;
    auto other = std::make_unique<X11PanelWindow>(second, *connection, *compositor, *screens);
    other->setFrame(QRect(1400, 680, 600, 120));
    other->orderFront();
    panel->popUpMenu(sampleMenu(), QPoint(10, 10), [&] { other.reset(); });
    ASSERT_TRUE(openSeen());
    auto* doomed = other.get();
    doomed->popUpMenu({entry("Other")}, QPoint(10, 10), [] {});
    EXPECT_EQ(other, nullptr);
    settle();
    EXPECT_TRUE(shown().empty());
}

TEST_F(X11PanelMenuTest, anAssistiveTechnologyCanReadAndChoose) {
    startMenus();
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    auto* menu = QAccessible::queryAccessibleInterface(shown().front());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->role(), QAccessible::PopupMenu);
    ASSERT_EQ(menu->childCount(), 6);
    EXPECT_EQ(menu->child(0)->text(QAccessible::Name), QStringLiteral("Open & Close_it"));
    EXPECT_EQ(menu->child(5)->text(QAccessible::Name), QStringLiteral("Quit"));
    EXPECT_TRUE(menu->child(4)->state().checked);
    EXPECT_TRUE(menu->child(1)->state().disabled);
    menu->child(5)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(logs({"Quit", "closed"}));
    EXPECT_TRUE(shown().empty());
}

TEST_F(X11PanelMenuTest, waitsForThePointerThatAnotherProgramHolds) {
    startMenus();
    TestWindow holder(display, QRect(300, 100, 400, 300));
    ASSERT_TRUE(holder.show());
    ASSERT_TRUE(holder.grabPointer());
    open(QPoint(10, 10));
    ASSERT_TRUE(openSeen());
    VirtualDisplay::runFor(200);
    xcb_ungrab_pointer(holder.xcb(), XCB_CURRENT_TIME);
    xcb_flush(holder.xcb());
    VirtualDisplay::runFor(200);
    display.click(QPoint(500, 200));
    EXPECT_TRUE(logs({"closed"}));
}

} // namespace quillary
