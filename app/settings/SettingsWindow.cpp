#include "app/settings/SettingsWindow.h"

#include "app/DockManager.h"
#include "app/settings/SettingsView.h"

#include <QGuiApplication>
#include <QPointer>
#include <QScreen>

namespace quillary::SettingsWindow {

namespace {

constexpr QSize initialSize(560, 640);

struct State {
    QPointer<DockManager> manager;
    QPointer<QWidget> window;
};

State& state() {
    static State held;
    return held;
}

QWidget* makeWindow(Form form) {
    DockManager& manager = *state().manager;
    auto* made = new SettingsView(manager, manager.system(), form);
    made->setWindowTitle(QStringLiteral("Quillary Settings"));
    made->resize(initialSize);
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        QRect frame(QPoint(), initialSize);
        frame.moveCenter(screen->availableGeometry().center());
        made->move(frame.topLeft());
    }
    return made;
}

} // namespace

void setManager(DockManager* manager) {
    state().manager = manager;
}

void show(Form form) {
    if (!state().manager) {
        return;
    }
    if (!state().window) {
        state().window = makeWindow(form);
    }
    QWidget& shown = *state().window;
    if (shown.isVisible() && (shown.isMinimized() || !shown.isActiveWindow())) {
        // It may be on another virtual desktop, from which window managers do not fetch a window that asks to
        // be in front: one that appears does so where the user is.
        shown.hide();
    }
    shown.setWindowState(shown.windowState() & ~Qt::WindowMinimized);
    shown.show();
    shown.raise();
    shown.activateWindow();
}

QWidget* window() {
    return state().window;
}

void discard() {
    delete state().window;
}

} // namespace quillary::SettingsWindow
