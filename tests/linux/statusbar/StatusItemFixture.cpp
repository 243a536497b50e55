#include "tests/linux/statusbar/StatusItemFixture.h"

#include "platform/x11/X11Grab.h"
#include "tests/surroundings/Surroundings.h"

#include <QDBusPendingCall>
#include <QDBusReply>
#include <QDir>
#include <QFile>
#include <QPixmap>

#include <cstdlib>

namespace quillary::test {

namespace {

constexpr QRgb symbolColour = qRgb(255, 0, 255);

QIcon symbol() {
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 44, 48, 64, 96}) {
        QPixmap pixmap(side, side);
        pixmap.fill(QColor(symbolColour));
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace

void StatusItemFixture::SetUp() {
    ASSERT_TRUE(display.isRunning()) << display.error();
    ASSERT_FALSE(bus->address().empty());
}

void StatusItemFixture::startApplication() {
    static int count = 1;
    static char name[] = "status-item-tests";
    static char* arguments[] = {name, nullptr};
    application = std::make_unique<QApplication>(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    connection = X11Connection::open();
    ASSERT_NE(connection, nullptr);
    tray = std::make_unique<X11SelectionOwner>(*connection, "_NET_SYSTEM_TRAY");
}

void StatusItemFixture::startItem() {
    if (!application) {
        startApplication();
    }
    const auto makeMenu = [this] {
        ++menusAsked;
        Menu menu;
        menu.push_back(ClosureMenuItem("Settings…", false, [this] { log.emplace_back("settings"); }));
        menu.push_back(ClosureMenuItem::separator());
        menu.push_back(ClosureMenuItem("Dock on LEFT_1", dockOn, [this, now = dockOn] {
            dockOn = !now;
            log.emplace_back("dock");
        }));
        menu.push_back(ClosureMenuItem("Quit Quillary", false, [this] {
            item.reset();
            log.emplace_back("quit");
        }));
        menu.back().keyEquivalent = 'q';
        return menu;
    };
    item = std::make_unique<QtStatusItem>(
        symbol(), "Quillary", makeMenu,
        QtStatusItem::Surroundings{.toPoints = [](QPoint native) { return native; },
                                   .frameNear = [](QPoint) { return QRect(0, 0, 2400, 900); },
                                   .grab = X11Grab::take});
    QObject::connect(item.get(), &StatusItem::shownChanged, item.get(),
                     [this] { shownChanges.push_back(item->isShown()); });
    item->setTrayPresent(tray->isPresent());
    QObject::connect(tray.get(), &X11SelectionOwner::changed, item.get(),
                     [this] { item->setTrayPresent(tray->isPresent()); });
}

void StatusItemFixture::TearDown() {
    item.reset();
    watcher.reset();
    tray.reset();
    connection.reset();
    application.reset();
}

bool StatusItemFixture::startTray() {
    const auto config = QDir::temp().filePath(QStringLiteral("quillary-tint2-%1").arg(getpid()));
    QFile file(config);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    file.write("panel_items = S\npanel_size = 400 40\npanel_position = bottom center horizontal\n"
               "systray_padding = 4 4 4\nsystray_icon_size = 24\npanel_monitor = all\n");
    file.close();
    trayProcess = display.start(Surroundings::withMachineData({"tint2", "-c", config.toStdString()}));
    const bool running = VirtualDisplay::waitUntil([this] {
        auto* reply = xcb_get_selection_owner_reply(
            display.xcb(), xcb_get_selection_owner(display.xcb(), display.atom("_NET_SYSTEM_TRAY_S0")),
            nullptr);
        const bool owned = reply != nullptr && reply->owner != XCB_WINDOW_NONE;
        std::free(reply);
        return owned;
    });
    file.remove();
    return running;
}

void StatusItemFixture::stopTray() {
    display.stop(trayProcess);
}

std::optional<QPoint> StatusItemFixture::symbolPlace() const {
    const QImage picture = display.screenshot();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == symbolColour) {
                return QPoint(x, y);
            }
        }
    }
    return std::nullopt;
}

QDBusMessage StatusItemFixture::ask(const QString& path, const QString& interface, const QString& method,
                                    const QVariantList& arguments) {
    auto message = QDBusMessage::createMethodCall(watcher->items().value(watcher->items().size() - 1), path,
                                                  interface, method);
    message.setArguments(arguments);
    const auto call = watcher->connection().asyncCall(message);
    eventually([&] { return call.isFinished(); });
    return call.reply();
}

QVariant StatusItemFixture::property(const QString& name) {
    const QDBusReply<QDBusVariant> reply(
        ask(QStringLiteral("/StatusNotifierItem"), QStringLiteral("org.freedesktop.DBus.Properties"),
            QStringLiteral("Get"), {QStringLiteral("org.kde.StatusNotifierItem"), name}));
    return reply.isValid() ? reply.value().variant() : QVariant();
}

DBusMenuNode StatusItemFixture::layout() {
    const auto reply = ask(QStringLiteral("/MenuBar"), QStringLiteral("com.canonical.dbusmenu"),
                           QStringLiteral("GetLayout"), {0, -1, QStringList()});
    return reply.arguments().size() == 2 ? qdbus_cast<DBusMenuNode>(reply.arguments().at(1)) : DBusMenuNode();
}

void StatusItemFixture::clickLine(int id) {
    const auto reply =
        ask(QStringLiteral("/MenuBar"), QStringLiteral("com.canonical.dbusmenu"), QStringLiteral("Event"),
            {id, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(0)), 0U});
    static_cast<void>(reply);
}

} // namespace quillary::test
