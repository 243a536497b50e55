#include "tests/x11/PanelMenuFixture.h"

#include <QAccessible>
#include <QWindow>

namespace quillary {

using namespace test;
using X11PanelMenuLifeTest = PanelMenuFixture;

TEST_F(X11PanelMenuLifeTest, standsWhollyOnThePanelsMonitorAtEveryEdge) {
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
    for (const auto& each : cases) {
        const auto& frame = each.panel;
        const auto& location = each.location;
        const auto& monitor = each.monitor;
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

TEST_F(X11PanelMenuLifeTest, opensUpwardsAtTheBottomEdge) {
    startMenus();
    open(QPoint(100, 60));
    ASSERT_TRUE(openSeen());
    const auto menu = display.geometry(xcb_window_t(shown().front()->winId()));
    EXPECT_EQ(menu.x(), 400);
    EXPECT_EQ(menu.y() + menu.height(), 840);
}

TEST_F(X11PanelMenuLifeTest, isPlacedByTheScreensAsTheyAreNow) {
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

TEST_F(X11PanelMenuLifeTest, aTitleWiderThanTheScreenIsShortened) {
    startMenus();
    panel->popUpMenu({entry(std::string(5000, 'x') + "\tCtrl+X\n")}, QPoint(10, 10), [] {});
    ASSERT_TRUE(openSeen());
    EXPECT_LE(shown().front()->width(), 1280);
    EXPECT_FALSE(shown().front()->actions().front()->text().contains(u'\t'));
}

TEST_F(X11PanelMenuLifeTest, isOpaqueAndAboveTheDock) {
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

TEST_F(X11PanelMenuLifeTest, anEntryMayDestroyThePanel) {
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
    EXPECT_TRUE(logs({"gone"}));
    settle();
    EXPECT_EQ(log, (std::vector<std::string>{"gone"}));
    EXPECT_FALSE(QtMenu::isOpen());
}

TEST_F(X11PanelMenuLifeTest, anEntryMayCloseThePanel) {
    startMenus();
    Menu menu;
    menu.push_back(ClosureMenuItem("Go", false, [this] {
        panel->close();
        log.emplace_back("gone");
    }));
    panel->popUpMenu(std::move(menu), QPoint(10, 10), [this] { log.emplace_back("closed"); });
    ASSERT_TRUE(openSeen());
    display.click(centreOf(*shown().front(), 0));
    EXPECT_TRUE(logs({"gone"}));
    settle();
    EXPECT_EQ(log, (std::vector<std::string>{"gone"}));
    EXPECT_FALSE(QtMenu::isOpen());
}

TEST_F(X11PanelMenuLifeTest, anEntryMayOpenTheNextMenuOfThePanel) {
    startMenus();
    Menu menu;
    menu.push_back(ClosureMenuItem("Go", false, [this] {
        log.emplace_back("go");
        open(QPoint(10, 10));
    }));
    panel->popUpMenu(std::move(menu), QPoint(10, 10), [this] { log.emplace_back("first closed"); });
    ASSERT_TRUE(openSeen());
    display.click(centreOf(*shown().front(), 0));
    EXPECT_TRUE(logs({"go", "first closed"}));
    ASSERT_TRUE(openSeen());
    panel->close();
    EXPECT_TRUE(shown().empty());
    settle();
    EXPECT_EQ(log, (std::vector<std::string>{"go", "first closed"}));
}

TEST_F(X11PanelMenuLifeTest, destroyingThePanelTakesTheMenuAway) {
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

TEST_F(X11PanelMenuLifeTest, closingThePanelTakesTheMenuAway) {
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

TEST_F(X11PanelMenuLifeTest, closedOfTheFirstMayDestroyThePanelOfTheNext) {
    startMenus();
    ColourWidget second;
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

TEST_F(X11PanelMenuLifeTest, anAssistiveTechnologyCanReadAndChoose) {
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

TEST_F(X11PanelMenuLifeTest, waitsForThePointerThatAnotherProgramHolds) {
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
