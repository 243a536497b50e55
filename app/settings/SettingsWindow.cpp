#include "app/settings/SettingsWindow.h"

#include "app/DockManager.h"
#include "app/settings/SettingsView.h"

#include <QGuiApplication>
#include <QScreen>

namespace quillary {

namespace {

constexpr QSize initialSize(560, 640);

} // namespace

SettingsWindow::SettingsWindow(DockManager& manager) : m_manager(&manager) {}

SettingsWindow::~SettingsWindow() = default;

std::unique_ptr<SettingsView> SettingsWindow::makeView(Form form) const {
    auto view = std::make_unique<SettingsView>(*m_manager, m_manager->system(), form);
    view->setWindowTitle(QStringLiteral("Quillary Settings"));
    view->resize(initialSize);
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        QRect frame(QPoint(), initialSize);
        frame.moveCenter(screen->availableGeometry().center());
        view->move(frame.topLeft());
    }
    return view;
}

void SettingsWindow::show(Form form) {
    if (!m_manager) {
        return;
    }
    if (!m_view) {
        m_view = makeView(form);
    }
    if (m_view->isVisible() && (m_view->isMinimized() || !m_view->isActiveWindow())) {
        // It may be on another virtual desktop. Window managers do not move a window from there when it asks
        // to be raised, but they map a window on the current desktop.
        m_view->hide();
    }
    m_view->setWindowState(m_view->windowState() & ~Qt::WindowMinimized);
    m_view->show();
    m_view->raise();
    m_view->activateWindow();
}

QWidget* SettingsWindow::window() const {
    return m_view.get();
}

} // namespace quillary
