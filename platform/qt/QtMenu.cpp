#include "platform/qt/QtMenu.h"

#include <QAction>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace quillary {

namespace {

// Another program may hold the pointer until the button that opened the menu is released. The grab is retried
// this many times, at this interval in milliseconds.
constexpr int mostGrabAttempts = 60;
constexpr int grabPause = 50;

// The width of check marks, arrows and shortcuts beside a title, in points.
constexpr int titleMargin = 160;

QPointer<QtMenu>& openMenu() {
    static QPointer<QtMenu> open;
    return open;
}

// Control characters become spaces, above all tabs, which would start the column of shortcuts.
QString oneLine(const std::string& title) {
    auto text = QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size()));
    for (auto& character : text) {
        if (character.category() == QChar::Other_Control) {
            character = u' ';
        }
    }
    return text;
}

QString shownTitle(const std::string& title, const QMenu& menu, int width) {
    auto text = menu.fontMetrics().elidedText(oneLine(title), Qt::ElideMiddle, width);
    return text.replace(u'&', QStringLiteral("&&"));
}

// A leading "&" is doubled in an action's text; its first character is the same.
QChar firstLetter(const QAction& action) {
    const auto text = action.text();
    return text.isEmpty() ? QChar() : text.front().toCaseFolded();
}

// Sends arrow keys, because QMenu::setActiveAction would open a submenu.
void goToLetter(QMenu& menu, QChar letter) {
    const auto actions = menu.actions();
    const auto start = actions.indexOf(menu.activeAction()) + 1;
    const QAction* wanted = nullptr;
    for (qsizetype i = 0; i < actions.size() && wanted == nullptr; ++i) {
        const auto* action = actions[(start + i) % actions.size()];
        if (action->isEnabled() && !action->isSeparator() && firstLetter(*action) == letter) {
            wanted = action;
        }
    }
    for (qsizetype i = 0; i < actions.size() && wanted != nullptr && menu.activeAction() != wanted; ++i) {
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QCoreApplication::sendEvent(&menu, &down);
    }
}

// Delivers the click as if no menu had been open.
void replayClick(QPoint position) {
    const QPointer window = QGuiApplication::topLevelAt(position);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        if (window) {
            const Qt::MouseButtons down = type == QEvent::MouseButtonPress ? Qt::RightButton : Qt::NoButton;
            QMouseEvent event(type, window->mapFromGlobal(position), position, Qt::RightButton, down,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(window, &event);
        }
    }
}

} // namespace

QtMenu::QtMenu(Menu menu, const Place& place, QObject& owner, std::function<void()> closed)
    : QObject(&owner),
      m_menu(std::move(menu)),
      m_place(place),
      m_closed(std::move(closed)),
      m_widget(std::make_unique<QMenu>()) {
    fill(*m_widget, m_menu);
    connect(m_widget.get(), &QMenu::triggered, this, [this](const QAction* action) {
        const auto found = m_entries.find(action);
        m_chosen = found == m_entries.end() ? nullptr : found->second;
        // Assistive technology triggers entries without closing the menu.
        m_widget->close();
    });
    // Queued, because QMenu emits `triggered` after `aboutToHide`.
    connect(m_widget.get(), &QMenu::aboutToHide, this, &QtMenu::finish, Qt::QueuedConnection);
}

QtMenu::~QtMenu() {
    if (m_widget) {
        m_widget->disconnect(this);
        m_widget.reset();
    }
}

void QtMenu::popUp(Menu menu, const Place& place, QObject& owner, std::function<void()> closed) {
    const QPointer guard(&owner);
    closeOpen();
    if (!guard) {
        return;
    }
    // Owned by `owner` as its QObject parent.
    auto* made = new QtMenu(std::move(menu), place, owner, std::move(closed));
    openMenu() = made;
    made->open();
}

void QtMenu::closeOpen() {
    if (auto* open = openMenu().data()) {
        open->finish();
    }
}

void QtMenu::drop(const QObject& owner) {
    // One whose entry is running is not the open one any more.
    for (auto* menu : owner.findChildren<QtMenu*>(Qt::FindDirectChildrenOnly)) {
        delete menu;
    }
}

bool QtMenu::isOpen() {
    return !openMenu().isNull();
}

void QtMenu::fill(QMenu& shown, const Menu& items) {
    shown.installEventFilter(this);
    const int width = std::max(m_place.frame.width() - titleMargin, titleMargin);
    for (const auto& item : items) {
        const auto title = shownTitle(item.title, shown, width);
        switch (item.kind) {
        case ClosureMenuItem::Kind::separator:
            shown.addSeparator();
            break;
        case ClosureMenuItem::Kind::submenu: {
            auto* submenu = shown.addMenu(title);
            submenu->menuAction()->setEnabled(item.enabled);
            fill(*submenu, item.items);
            break;
        }
        case ClosureMenuItem::Kind::entry: {
            auto* action = shown.addAction(title);
            action->setEnabled(item.enabled);
            action->setCheckable(item.checked);
            action->setChecked(item.checked);
            if (item.keyEquivalent != 0) {
                action->setShortcut(QKeySequence(
                    Qt::CTRL | Qt::Key(QChar::fromLatin1(item.keyEquivalent).toUpper().unicode())));
                action->setShortcutVisibleInContextMenu(true);
            }
            m_entries.emplace(action, &item);
            break;
        }
        }
    }
}

void QtMenu::open() {
    m_widget->popup(m_place.corner);
    holdGrab();
}

void QtMenu::holdGrab() {
    auto* window = m_widget ? m_widget->windowHandle() : nullptr;
    if (window == nullptr || !m_widget->isVisible() || ++m_grabAttempts > mostGrabAttempts) {
        return;
    }
    if (m_place.grab && !m_place.grab(*window)) {
        QTimer::singleShot(grabPause, this, &QtMenu::holdGrab);
    }
}

bool QtMenu::eventFilter(QObject* watched, QEvent* event) {
    auto* shown = qobject_cast<QMenu*>(watched);
    if (shown != nullptr && event->type() == QEvent::Show) {
        fit(*shown);
    } else if (shown != nullptr && event->type() == QEvent::MouseButtonPress) {
        handlePress(*dynamic_cast<QMouseEvent*>(event));
    } else if (shown != nullptr && event->type() == QEvent::KeyPress &&
               handleKey(*shown, *dynamic_cast<QKeyEvent*>(event))) {
        return true;
    }
    return QObject::eventFilter(watched, event);
}

// Below and to the right of the point if there is room, otherwise on the other side.
QPoint QtMenu::cornerOf(QSize size) const {
    const QRect& frame = m_place.frame;
    QPoint corner = m_place.corner;
    if (corner.x() + size.width() > frame.x() + frame.width()) {
        corner.rx() -= size.width();
    }
    if (corner.y() + size.height() > frame.y() + frame.height()) {
        corner.ry() -= size.height();
    }
    return corner;
}

// Qt places menus by its list of screens, which is outdated after some changes.
void QtMenu::fit(QMenu& shown) const {
    const QRect& frame = m_place.frame;
    const QSize size = shown.size();
    QPoint corner = &shown == m_widget.get() ? cornerOf(size) : shown.pos();
    if (const auto* above = qobject_cast<QMenu*>(shown.parentWidget())) {
        const bool overRight = corner.x() + size.width() > frame.x() + frame.width();
        if (overRight && corner.x() >= above->geometry().center().x()) {
            corner.setX(above->x() - size.width());
        }
    }
    corner.setX(std::max(frame.x(), std::min(corner.x(), frame.x() + frame.width() - size.width())));
    corner.setY(std::max(frame.y(), std::min(corner.y(), frame.y() + frame.height() - size.height())));
    if (corner != shown.pos()) {
        shown.move(corner);
    }
}

QAction* QtMenu::equivalentOf(const QKeyEvent& event) const {
    for (const auto& [action, item] : m_entries) {
        if (item->enabled && item->keyEquivalent != 0 &&
            event.key() == QChar::fromLatin1(item->keyEquivalent).toUpper().unicode()) {
            return const_cast<QAction*>(action);
        }
    }
    return nullptr;
}

void QtMenu::handlePress(const QMouseEvent& event) {
    const QPoint position = event.globalPosition().toPoint();
    auto menus = m_widget->findChildren<QMenu*>();
    menus.append(m_widget.get());
    const bool inside = std::ranges::any_of(menus, [position](const QMenu* candidate) {
        return candidate->isVisible() && candidate->geometry().contains(position);
    });
    if (!inside && event.button() == Qt::RightButton) {
        m_clickedElsewhere = position;
    }
}

bool QtMenu::handleKey(QMenu& shown, const QKeyEvent& event) {
    if (event.modifiers() == Qt::ControlModifier) {
        if (const auto* action = equivalentOf(event)) {
            m_chosen = m_entries.at(action);
            m_widget->close();
            return true;
        }
        return false;
    }
    if ((event.modifiers() & ~Qt::ShiftModifier) != 0 || event.text().size() != 1 ||
        !event.text().front().isLetterOrNumber()) {
        return false;
    }
    goToLetter(shown, event.text().front().toCaseFolded());
    return true;
}

void QtMenu::finish() {
    if (std::exchange(m_finished, true)) {
        return;
    }
    if (openMenu() == this) {
        openMenu().clear();
    }
    m_widget->disconnect(this);
    m_widget->hide();
    deleteLater();
    // The handlers may destroy the owner, and with it this object, or drop it. Then `closed` does not run.
    const QPointer self(this);
    const auto keptMenu = std::move(m_menu);
    const auto closed = std::move(m_closed);
    const auto* entry = m_chosen;
    const auto click = m_clickedElsewhere;
    m_widget.release()->deleteLater();
    if (entry != nullptr) {
        entry->fire();
    }
    if (self && closed) {
        closed();
    }
    if (click) {
        replayClick(*click);
    }
}

} // namespace quillary
