#include "platform/qt/QtMenu.h"
#include "tests/linux/bus/SilentBus.h"
#include "tests/linux/statusbar/StatusItemFixture.h"
#include "tests/surroundings/Surroundings.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMenu>

#include <memory>

namespace quillary {

using namespace Qt::StringLiterals;
using test::NotifierWatcherStandIn;
using test::VirtualDisplay;
using QtStatusItemTest = test::StatusItemFixture;

namespace {

const auto menuPath = u"/MenuBar"_s;
const auto menuInterface = u"com.canonical.dbusmenu"_s;

class SignalLog final : public QObject {
    Q_OBJECT

public:
    QList<QPair<uint, int>> updates;

public Q_SLOTS:
    void layoutUpdated(uint revision, int parent) { updates.append({revision, parent}); }
};

// Takes every call and answers none.
class MuteObject final : public QDBusVirtualObject {
public:
    int calls = 0;

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) override {
        ++calls;
        message.setDelayedReply(true);
        return true;
    }
};

} // namespace

TEST_F(QtStatusItemTest, withoutAnyTrayNothingIsShown) {
    startItem();
    VirtualDisplay::runFor(400);
    EXPECT_FALSE(item->isShown());
    EXPECT_TRUE(shownChanges.empty());
    EXPECT_EQ(menusAsked, 0);
    EXPECT_FALSE(symbolSeen());
}

TEST_F(QtStatusItemTest, aWatcherThatIsThereGetsTheItem) {
    startApplication();
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    startItem();
    EXPECT_FALSE(item->isShown());
    EXPECT_TRUE(eventually([&] { return item->isShown(); }));
    EXPECT_EQ(watcher->items().size(), 1);
    EXPECT_EQ(shownChanges, std::vector<bool>{true});
    EXPECT_EQ(property(u"Id"_s), u"Quillary"_s);
    EXPECT_EQ(property(u"Title"_s), u"Quillary"_s);
    EXPECT_EQ(property(u"Category"_s), u"ApplicationStatus"_s);
    EXPECT_EQ(property(u"Status"_s), u"Active"_s);
    EXPECT_EQ(property(u"ItemIsMenu"_s), true);
    EXPECT_EQ(property(u"IconAccessibleDesc"_s), u"Quillary"_s);
    EXPECT_EQ(property(u"Menu"_s).value<QDBusObjectPath>().path(), menuPath);
    EXPECT_EQ(qdbus_cast<NotifierToolTip>(property(u"ToolTip"_s)).title, u"Quillary"_s);
}

TEST_F(QtStatusItemTest, theSymbolComesInAllSizesInNetworkOrder) {
    startApplication();
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    startItem();
    ASSERT_TRUE(eventually([&] { return item->isShown(); }));
    const auto pixmaps = qdbus_cast<QList<NotifierPixmap>>(property(u"IconPixmap"_s));
    std::vector<int> sides;
    for (const auto& pixmap : pixmaps) {
        sides.push_back(pixmap.width);
        EXPECT_EQ(pixmap.height, pixmap.width);
        ASSERT_EQ(pixmap.bytes.size(), qsizetype{pixmap.width} * pixmap.width * 4);
        EXPECT_EQ(pixmap.bytes.first(4), QByteArray("\xff\xff\x00\xff", 4)) << "alpha, red, green, blue";
    }
    EXPECT_EQ(sides, (std::vector<int>{16, 22, 24, 32, 44, 48, 64, 96}));
}

TEST_F(QtStatusItemTest, aWatcherThatStartsLaterGetsTheItem) {
    startItem();
    VirtualDisplay::runFor(300);
    EXPECT_FALSE(item->isShown());
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    EXPECT_TRUE(eventually([&] { return item->isShown(); }));
    EXPECT_EQ(watcher->items().size(), 1);
}

TEST_F(QtStatusItemTest, aWatcherThatIsReplacedGetsTheItemAgain) {
    startItem();
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    ASSERT_TRUE(eventually([&] { return item->isShown(); }));
    watcher.reset();
    ASSERT_TRUE(eventually([&] { return !item->isShown(); }));
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    EXPECT_TRUE(eventually([&] { return item->isShown(); }));
    EXPECT_EQ(watcher->items().size(), 1);
    EXPECT_EQ(shownChanges, (std::vector<bool>{true, false, true}));
}

TEST_F(QtStatusItemTest, aWatcherWithoutABarShowsNothingUntilOneComes) {
    startApplication();
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address(), NotifierWatcherStandIn::Host::absent);
    startItem();
    ASSERT_TRUE(eventually([&] { return watcher->items().size() == 1; }));
    VirtualDisplay::runFor(200);
    EXPECT_FALSE(item->isShown());
    watcher->addHost();
    EXPECT_TRUE(eventually([&] { return item->isShown(); }));
}

TEST_F(QtStatusItemTest, destroyingItTakesItOffTheBus) {
    startApplication();
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    startItem();
    ASSERT_TRUE(eventually([&] { return item->isShown(); }));
    item.reset();
    const auto gone = [&] {
        const auto reply = ask(u"/StatusNotifierItem"_s, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s);
        return reply.errorName() == "org.freedesktop.DBus.Error.ServiceUnknown"_L1 ||
               reply.errorName() == "org.freedesktop.DBus.Error.NameHasNoOwner"_L1;
    };
    EXPECT_TRUE(eventually(gone));
}

TEST_F(QtStatusItemTest, theMenuIsReadAndItsHandlersRun) {
    startApplication();
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    startItem();
    ASSERT_TRUE(eventually([&] { return item->isShown(); }));
    const auto root = layout();
    ASSERT_EQ(root.children.size(), 4U);
    EXPECT_EQ(root.children[0].properties.value(u"label"_s), u"Settings…"_s);
    EXPECT_EQ(root.children[1].properties.value(u"type"_s), u"separator"_s);
    EXPECT_EQ(root.children[2].properties.value(u"label"_s), u"Dock on LEFT__1"_s);
    EXPECT_EQ(root.children[2].properties.value(u"toggle-state"_s), 1);
    EXPECT_EQ(qdbus_cast<QList<QStringList>>(root.children[3].properties.value(u"shortcut"_s)),
              (QList<QStringList>{{u"Control"_s, u"q"_s}}));
    clickLine(root.children[0].id);
    EXPECT_TRUE(eventually([&] { return log == std::vector<std::string>{"settings"}; }));
    clickLine(root.children[1].id);
    clickLine(0);
    VirtualDisplay::runFor(100);
    EXPECT_EQ(log.size(), 1U);
}

TEST_F(QtStatusItemTest, theMenuIsAskedForAnewBeforeItIsShown) {
    startApplication();
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    startItem();
    ASSERT_TRUE(eventually([&] { return item->isShown(); }));
    SignalLog signalLog;
    watcher->connection().connect({}, menuPath, menuInterface, u"LayoutUpdated"_s, &signalLog,
                                  SLOT(layoutUpdated(uint, int)));
    const auto before = layout();
    ASSERT_TRUE(eventually([&] { return signalLog.updates.size() == 1; }));
    EXPECT_EQ(ask(menuPath, menuInterface, u"AboutToShow"_s, {0}).arguments(), QVariantList{false});
    dockOn = false;
    menusAsked = 0;
    EXPECT_EQ(ask(menuPath, menuInterface, u"AboutToShow"_s, {0}).arguments(), QVariantList{true});
    EXPECT_EQ(menusAsked, 1);
    ASSERT_TRUE(eventually([&] { return signalLog.updates.size() == 2; }));
    EXPECT_GT(signalLog.updates[1].first, signalLog.updates[0].first);
    EXPECT_EQ(signalLog.updates[1].second, 0);
    const auto after = layout();
    EXPECT_FALSE(after.children[2].properties.contains(u"toggle-state"_s));
    // A bar that never announces it reads the current state too.
    dockOn = true;
    EXPECT_EQ(layout().children[2].properties.value(u"toggle-state"_s), 1);
    clickLine(before.children[2].id);
    clickLine(after.children[2].id);
    VirtualDisplay::runFor(200);
    EXPECT_EQ(log, std::vector<std::string>{}) << "outdated lines mean nothing";
    clickLine(layout().children[2].id);
    EXPECT_TRUE(eventually([&] { return log == std::vector<std::string>{"dock"}; }));
    EXPECT_FALSE(dockOn);
}

TEST_F(QtStatusItemTest, groupsAndUnknownLinesAreAnswered) {
    startApplication();
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    startItem();
    ASSERT_TRUE(eventually([&] { return item->isShown(); }));
    const auto root = layout();
    const auto group = ask(menuPath, menuInterface, u"GetGroupProperties"_s,
                           {QVariant::fromValue(QList<int>{root.children[0].id, 9999}), QStringList()});
    const auto lines = qdbus_cast<QList<DBusMenuLine>>(group.arguments().value(0));
    ASSERT_EQ(lines.size(), 1);
    EXPECT_EQ(lines[0].properties.value(u"label"_s), u"Settings…"_s);
    EXPECT_EQ(ask(menuPath, menuInterface, u"GetLayout"_s, {9999, -1, QStringList()}).type(),
              QDBusMessage::ErrorMessage);
    EXPECT_EQ(ask(menuPath, menuInterface, u"GetProperty"_s, {9999, u"label"_s}).type(),
              QDBusMessage::ErrorMessage);
    const QList<DBusMenuEvent> events{
        {.id = root.children[0].id, .kind = u"clicked"_s, .data = QDBusVariant(0)},
        {.id = 9999, .kind = u"clicked"_s, .data = QDBusVariant(0)}};
    const auto unknown = ask(menuPath, menuInterface, u"EventGroup"_s, {QVariant::fromValue(events)});
    EXPECT_EQ(qdbus_cast<QList<int>>(unknown.arguments().value(0)), QList<int>{9999});
    EXPECT_TRUE(eventually([&] { return log == std::vector<std::string>{"settings"}; }));
}

TEST_F(QtStatusItemTest, anEntryMayDestroyTheItem) {
    startApplication();
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    startItem();
    ASSERT_TRUE(eventually([&] { return item->isShown(); }));
    clickLine(layout().children[3].id);
    EXPECT_TRUE(eventually([&] { return log == std::vector<std::string>{"quit"}; }));
    EXPECT_EQ(item, nullptr);
}

TEST_F(QtStatusItemTest, activatingOpensTheMenuThere) {
    startApplication();
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    startItem();
    ASSERT_TRUE(eventually([&] { return item->isShown(); }));
    for (const auto& method : {u"Activate"_s, u"ContextMenu"_s}) {
        static_cast<void>(ask(u"/StatusNotifierItem"_s, u"org.kde.StatusNotifierItem"_s, method, {600, 400}));
        ASSERT_TRUE(eventually([] { return QApplication::activePopupWidget() != nullptr; }));
        EXPECT_EQ(QApplication::activePopupWidget()->pos(), QPoint(600, 400));
        EXPECT_EQ(QApplication::activePopupWidget()->actions().size(), 4);
        QtMenu::closeOpen();
    }
    EXPECT_EQ(menusAsked, 2);
}

TEST_F(QtStatusItemTest, theEndOfTheBusIsSurvived) {
    startApplication();
    watcher = std::make_unique<NotifierWatcherStandIn>(bus->address());
    startItem();
    ASSERT_TRUE(eventually([&] { return item->isShown(); }));
    bus->stop();
    EXPECT_TRUE(eventually([&] { return !item->isShown(); }));
    VirtualDisplay::runFor(200);
}

TEST_F(QtStatusItemTest, aBusThatSaysNothingHoldsNothingUp) {
    startApplication();
    auto silent = std::make_unique<test::SilentBus>(test::Surroundings::root() / "silent-bus");
    setenv("DBUS_SESSION_BUS_ADDRESS", silent->address().c_str(), 1);
    startItem();
    item->setTrayPresent(true);
    EXPECT_TRUE(eventually([&] { return silent->connections() > 0; }));
    VirtualDisplay::runFor(500);
    EXPECT_FALSE(item->isShown());
    item.reset();
    // Whoever connected would have closed its connection by the time that a blocking call returned.
    EXPECT_FALSE(silent->isGivenUp());
    silent.reset();
    test::Surroundings::remove();
    // Threads of the toolkit still wait for the bus.
    std::_Exit(testing::Test::HasFailure() ? 1 : 0);
}

TEST_F(QtStatusItemTest, aWatcherThatDoesNotAnswerHoldsNothingUp) {
    startApplication();
    const QString name = u"mute"_s;
    auto other = QDBusConnection::connectToBus(QString::fromStdString(bus->address()), name);
    MuteObject mute;
    other.registerVirtualObject(u"/"_s, &mute, QDBusConnection::SubPath);
    ASSERT_TRUE(other.registerService(u"org.kde.StatusNotifierWatcher"_s));
    startItem();
    item->setTrayPresent(true);
    int turns = 0;
    EXPECT_TRUE(eventually([&] {
        turns += mute.calls;
        return turns > 100;
    })) << "the event loop goes on while the call has no answer";
    // Longer than the item waits for an answer.
    VirtualDisplay::runFor(6000);
    EXPECT_EQ(mute.calls, 1);
    EXPECT_FALSE(item->isShown());
}

} // namespace quillary

#include "QtStatusItemTests.moc"
