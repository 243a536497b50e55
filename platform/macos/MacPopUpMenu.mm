#import "platform/macos/MacPopUpMenu.h"

#import "platform/macos/MacMenu.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <utility>

#import <AppKit/AppKit.h>

namespace quillary {

namespace {

// The interval of checks whether the loop of a cancelled menu has ended.
constexpr std::chrono::milliseconds openPause{20};

// The menu that is open or about to open.
QPointer<MacPopUpMenu>& current() {
    static QPointer<MacPopUpMenu> menu;
    return menu;
}

// The number of AppKit's tracking loops that are running.
int& loops() {
    static int count = 0;
    return count;
}

} // namespace

struct MacPopUpMenu::Native {
    NSMenu* menu = nil;
    QPointer<QWidget> window;
};

MacPopUpMenu::MacPopUpMenu(Menu menu, QWidget& window, QPoint location, QObject& owner,
                           std::function<void()> closed)
    : QObject(&owner),
      m_menu(std::move(menu)),
      m_location(location),
      m_closed(std::move(closed)),
      m_native(std::make_unique<Native>()) {
    const QPointer<MacPopUpMenu> self(this);
    m_native->window = &window;
    m_native->menu = MacMenu::make(m_menu, [self](const ClosureMenuItem& item) {
        if (self) {
            self->m_chosen = item;
        }
    });
}

MacPopUpMenu::~MacPopUpMenu() {
    [m_native->menu cancelTrackingWithoutAnimation];
}

void MacPopUpMenu::popUp(Menu menu, QWidget& window, QPoint location, QObject& owner,
                         std::function<void()> closed) {
    const QPointer guard(&owner);
    if (current()) {
        current()->finish();
    }
    if (!guard) {
        return;
    }
    // Owned by `owner` as its QObject parent.
    auto* made = new MacPopUpMenu(std::move(menu), window, location, owner, std::move(closed));
    current() = made;
    // Not inside the handler of the present event, whose object may not exist any more when the menu closes.
    QTimer::singleShot(0, made, &MacPopUpMenu::open);
}

void MacPopUpMenu::drop(const QObject& owner) {
    // One whose entry is running is not the current one any more.
    for (auto* menu : owner.findChildren<MacPopUpMenu*>(Qt::FindDirectChildrenOnly)) {
        delete menu;
    }
}

void MacPopUpMenu::open() {
    if (loops() > 0) {
        QTimer::singleShot(openPause, this, &MacPopUpMenu::open);
        return;
    }
    if (!m_native->window) {
        finish();
        return;
    }
    const QPointer guard(this);
    NSMenu* menu = m_native->menu;
    NSView* view = (__bridge NSView*)reinterpret_cast<void*>(m_native->window->winId());
    ++loops();
    [menu popUpMenuPositioningItem:nil atLocation:NSMakePoint(m_location.x(), m_location.y()) inView:view];
    --loops();
    if (guard) {
        // Queued, because AppKit may send the chosen item's action just after this.
        QTimer::singleShot(0, this, &MacPopUpMenu::finish);
    }
}

void MacPopUpMenu::finish() {
    if (current() != this) {
        return;
    }
    current().clear();
    [m_native->menu cancelTrackingWithoutAnimation];
    deleteLater();
    // The handlers may destroy the owner, and with it this object, or drop it. Then `closed` does not run.
    const QPointer<MacPopUpMenu> self(this);
    const auto entry = std::move(m_chosen);
    const auto closed = std::move(m_closed);
    if (entry) {
        entry->fire();
    }
    if (self && closed) {
        closed();
    }
}

} // namespace quillary
