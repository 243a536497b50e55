#include "tests/x11/PanelMenuFixture.h"

namespace quillary {

using namespace test;
using X11PanelMenuTest = PanelMenuFixture;

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
    ColourWidget second;
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
    ColourWidget second;
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

} // namespace quillary
