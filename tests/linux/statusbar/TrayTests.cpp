#include "platform/qt/QtMenu.h"
#include "tests/linux/statusbar/StatusItemFixture.h"

#include <QAccessible>
#include <QMenu>

namespace quillary {

using test::NotifierWatcherStandIn;
using test::VirtualDisplay;

namespace {

class TrayTest : public test::StatusItemFixture {
protected:
    void SetUp() override {
        StatusItemFixture::SetUp();
        ASSERT_TRUE(display.startWindowManager());
    }
    [[nodiscard]] bool appears() {
        return eventually([this] { return item->isShown() && symbolSeen(); });
    }
    [[nodiscard]] bool disappears() {
        return eventually([this] { return !item->isShown() && !symbolSeen(); });
    }
};

} // namespace

TEST_F(TrayTest, aTrayThatIsThereShowsTheSymbol) {
    ASSERT_TRUE(startTray());
    startItem();
    EXPECT_TRUE(appears());
    EXPECT_EQ(shownChanges, std::vector<bool>{true});
    item.reset();
    EXPECT_TRUE(eventually([this] { return !symbolSeen(); }));
}

TEST_F(TrayTest, aTrayThatStartsLaterShowsTheSymbol) {
    startItem();
    VirtualDisplay::runFor(300);
    EXPECT_FALSE(item->isShown());
    ASSERT_TRUE(startTray());
    EXPECT_TRUE(appears());
}

TEST_F(TrayTest, aTrayThatIsRestartedShowsTheSymbolAgain) {
    ASSERT_TRUE(startTray());
    startItem();
    ASSERT_TRUE(appears());
    stopTray();
    EXPECT_TRUE(disappears());
    ASSERT_TRUE(startTray());
    EXPECT_TRUE(appears());
}

TEST_F(TrayTest, withoutABusTheTrayShowsTheSymbol) {
    setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
    ASSERT_TRUE(startTray());
    startItem();
    EXPECT_TRUE(appears());
}

TEST_F(TrayTest, withoutABusAndWithoutATrayNothingIsShown) {
    setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
    ASSERT_TRUE(startTray());
    startItem();
    // The symbol in the tray shows that the item knows that there is no bus: it prefers one.
    ASSERT_TRUE(appears());
    stopTray();
    EXPECT_TRUE(disappears());
    EXPECT_FALSE(item->isShown());
}

TEST_F(TrayTest, aWatcherThatComesLaterTakesOverFromTheTrayAndGivesBack) {
    ASSERT_TRUE(startTray());
    startItem();
    ASSERT_TRUE(appears());
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    EXPECT_TRUE(eventually([this] { return watcher->items().size() == 1 && !symbolSeen(); }));
    EXPECT_TRUE(item->isShown());
    watcher.reset();
    EXPECT_TRUE(appears());
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    EXPECT_TRUE(eventually([this] { return watcher->items().size() == 1 && !symbolSeen(); }));
}

TEST_F(TrayTest, aTrayThatComesAfterTheWatcherWaitsForItsEnd) {
    startApplication();
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    startItem();
    ASSERT_TRUE(eventually([this] { return item->isShown(); }));
    ASSERT_TRUE(startTray());
    VirtualDisplay::runFor(500);
    EXPECT_FALSE(symbolSeen());
    watcher.reset();
    EXPECT_TRUE(appears());
}

TEST_F(TrayTest, aWatcherWithoutABarLeavesTheTrayItsSymbol) {
    startApplication();
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address(), NotifierWatcherStandIn::Host::absent);
    ASSERT_TRUE(startTray());
    startItem();
    EXPECT_TRUE(appears());
}

TEST_F(TrayTest, eitherButtonOpensTheMenuAtTheSymbol) {
    ASSERT_TRUE(startTray());
    startItem();
    ASSERT_TRUE(appears());
    for (const int button : {1, 3}) {
        const auto place = symbolPlace();
        ASSERT_TRUE(place);
        menusAsked = 0;
        display.click(*place + QPoint(4, 4), button);
        ASSERT_TRUE(eventually([] { return QApplication::activePopupWidget() != nullptr; })) << button;
        EXPECT_EQ(menusAsked, 1);
        const QRect menu = QApplication::activePopupWidget()->geometry();
        EXPECT_TRUE(QRect(0, 0, 2400, 900).contains(menu));
        EXPECT_LE(std::abs(menu.left() - place->x()), 24);
        EXPECT_LE(menu.bottom(), place->y() + 4) << "it does not cover the symbol";
        display.click(QPoint(100, 100));
        ASSERT_TRUE(eventually([] { return !QtMenu::isOpen(); }));
        VirtualDisplay::runFor(300);
    }
}

TEST_F(TrayTest, theSymbolHasANameForAssistiveTechnologies) {
    ASSERT_TRUE(startTray());
    startItem();
    ASSERT_TRUE(appears());
    bool named = false;
    for (auto* widget : QApplication::topLevelWidgets()) {
        auto* accessible = QAccessible::queryAccessibleInterface(widget);
        named = named || (widget->isVisible() && accessible != nullptr &&
                          accessible->text(QAccessible::Name) == QStringLiteral("Quillary"));
    }
    EXPECT_TRUE(named);
}

} // namespace quillary
