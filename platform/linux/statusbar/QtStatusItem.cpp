#include "platform/linux/statusbar/QtStatusItem.h"

#include "platform/qt/QtMenu.h"

#include <QApplication>
#include <QWidget>

#include <utility>

namespace quillary {

using namespace Qt::StringLiterals;

namespace {

// The object paths that hosts expect.
const auto itemPath = u"/StatusNotifierItem"_s;
const auto menuPath = u"/MenuBar"_s;

// The toolkit does not give the window of its icon an accessible name.
void nameTrayWindow(const QString& name) {
    for (auto* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == "QSystemTrayIconSys"_L1) {
            widget->setAccessibleName(name);
        }
    }
}

} // namespace

QtStatusItem::QtStatusItem(const QIcon& symbol, const std::string& description,
                           std::function<Menu()> menuSource, Surroundings surroundings)
    : m_symbol(symbol),
      m_description(QString::fromUtf8(description.data(), static_cast<qsizetype>(description.size()))),
      m_menuSource(std::move(menuSource)),
      m_surroundings(std::move(surroundings)),
      m_menu(m_menuSource),
      m_item(m_symbol, m_description, menuPath) {
    connect(&m_watcher, &NotifierWatcher::connected, this, &QtStatusItem::registerObjects);
    connect(&m_watcher, &NotifierWatcher::stateChanged, this, &QtStatusItem::update);
    connect(&m_item, &NotifierItem::menuWanted, this,
            [this](QPoint position) { open(m_surroundings.toPoints(position)); });
}

QtStatusItem::~QtStatusItem() {
    QtMenu::drop(*this);
}

void QtStatusItem::registerObjects() {
    auto bus = *m_watcher.bus();
    const auto everything = QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties;
    bus.registerObject(itemPath, &m_item, everything | QDBusConnection::ExportScriptableSignals);
    bus.registerObject(menuPath, &m_menu, everything | QDBusConnection::ExportAllSignals);
}

void QtStatusItem::setTrayPresent(bool present) {
    if (present != m_trayPresent) {
        m_trayPresent = present;
        update();
    }
}

// Not before the bus has answered, nor while the watcher is silent: the toolkit calls it, and blocks, when
// the icon is created.
bool QtStatusItem::trayMayBeUsed() const {
    return m_watcher.state() == NotifierWatcher::State::absent ||
           m_watcher.state() == NotifierWatcher::State::idle;
}

void QtStatusItem::update() {
    const bool onBus = m_watcher.state() == NotifierWatcher::State::shown;
    if (onBus || !m_trayPresent) {
        m_tray.reset();
    } else if (!m_tray && trayMayBeUsed()) {
        showTrayIcon();
    }
    const bool now = onBus || m_tray != nullptr;
    if (now != m_isShown) {
        m_isShown = now;
        Q_EMIT shownChanged();
    }
}

void QtStatusItem::showTrayIcon() {
    m_tray = std::make_unique<QSystemTrayIcon>(m_symbol);
    m_tray->setToolTip(m_description);
    connect(m_tray.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::Context) {
                    openAtIcon();
                }
            });
    m_tray->show();
    nameTrayWindow(m_description);
}

void QtStatusItem::openAtIcon() {
    const QRect icon = m_tray->geometry();
    const QRect frame = m_surroundings.frameNear(icon.center());
    // Beside the icon, towards the middle of the screen.
    const bool below = icon.center().y() < frame.center().y();
    open(below ? QPoint(icon.left(), icon.bottom() + 1) : icon.topLeft());
}

void QtStatusItem::open(QPoint corner) {
    QtMenu::popUp(m_menuSource(), {corner, m_surroundings.frameNear(corner), m_surroundings.grab}, *this,
                  nullptr);
}

} // namespace quillary
