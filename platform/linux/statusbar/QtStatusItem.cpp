#include "platform/linux/statusbar/QtStatusItem.h"

#include "platform/qt/QtMenu.h"

#include <QApplication>
#include <QWidget>

#include <utility>

namespace quillary {

using namespace Qt::StringLiterals;

namespace {

// The places that hosts take for granted.
const auto itemPath = u"/StatusNotifierItem"_s;
const auto menuPath = u"/MenuBar"_s;

// The toolkit gives the window of its icon no name that could be read out.
void nameTrayWindow(const QString& name) {
    for (auto* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == "QSystemTrayIconSys"_L1) {
            widget->setAccessibleName(name);
        }
    }
}

} // namespace

QtStatusItem::QtStatusItem(const QIcon& icon, const std::string& accessibleName,
                           std::function<Menu()> menuNeedsUpdate, Surroundings places)
    : symbol(icon),
      description(QString::fromUtf8(accessibleName.data(), static_cast<qsizetype>(accessibleName.size()))),
      menuSource(std::move(menuNeedsUpdate)),
      surroundings(std::move(places)),
      menu(menuSource),
      item(symbol, description, menuPath) {
    connect(&watcher, &NotifierWatcher::connected, this, &QtStatusItem::registerObjects);
    connect(&watcher, &NotifierWatcher::stateChanged, this, &QtStatusItem::update);
    connect(&item, &NotifierItem::menuWanted, this,
            [this](QPoint position) { open(surroundings.toPoints(position)); });
}

QtStatusItem::~QtStatusItem() {
    QtMenu::drop(*this);
}

void QtStatusItem::registerObjects() {
    auto bus = *watcher.bus();
    const auto everything = QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties;
    bus.registerObject(itemPath, &item, everything | QDBusConnection::ExportScriptableSignals);
    bus.registerObject(menuPath, &menu, everything | QDBusConnection::ExportAllSignals);
}

void QtStatusItem::setTrayPresent(bool present) {
    if (present != trayPresent) {
        trayPresent = present;
        update();
    }
}

// Not before the bus has answered, and not while somebody on it is silent: the toolkit asks there by itself
// when the icon is made, and waits.
bool QtStatusItem::trayMayBeUsed() const {
    return watcher.state() == NotifierWatcher::State::absent ||
           watcher.state() == NotifierWatcher::State::idle;
}

void QtStatusItem::update() {
    const bool onBus = watcher.state() == NotifierWatcher::State::shown;
    if (onBus || !trayPresent) {
        tray.reset();
    } else if (!tray && trayMayBeUsed()) {
        showTrayIcon();
    }
    const bool now = onBus || tray != nullptr;
    if (now != shown) {
        shown = now;
        Q_EMIT shownChanged();
    }
}

void QtStatusItem::showTrayIcon() {
    tray = std::make_unique<QSystemTrayIcon>(symbol);
    tray->setToolTip(description);
    connect(tray.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::Context) {
            openAtIcon();
        }
    });
    tray->show();
    nameTrayWindow(description);
}

void QtStatusItem::openAtIcon() {
    const QRect icon = tray->geometry();
    const QRect frame = surroundings.frameNear(icon.center());
    // Beside the icon, on the side where the screen is.
    const bool below = icon.center().y() < frame.center().y();
    open(below ? QPoint(icon.left(), icon.bottom() + 1) : icon.topLeft());
}

void QtStatusItem::open(QPoint corner) {
    QtMenu::popUp(menuSource(), {corner, surroundings.frameNear(corner), surroundings.grab}, *this, nullptr);
}

} // namespace quillary
