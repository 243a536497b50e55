#include "app/AppDelegate.h"

#include "app/DebugSnapshot.h"
#include "app/DockManager.h"
#include "app/StatusMenu.h"
#include "app/StatusSymbol.h"
#include "app/settings/SettingsWindow.h"
#include "platform/Platform.h"
#include "platform/SingleInstance.h"
#include "platform/StatusItem.h"

namespace quillary {

AppDelegate::AppDelegate(Platform& platform) : m_platform(platform) {
    connect(&m_platform.instance(), &SingleInstance::reopened, this,
            [this] { applicationShouldHandleReopen(m_settings && m_settings->window() != nullptr); });
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    m_manager = std::make_unique<DockManager>(m_platform);
    m_settings = std::make_unique<SettingsWindow>(*m_manager);
    connect(m_manager.get(), &DockManager::settingsRequested, this, &AppDelegate::showSettings);
    m_statusItem =
        m_platform.makeStatusItem(statusSymbol(), "Quillary", [this] { return menuNeedsUpdate(); });
    m_snapshot = DebugSnapshot::runIfRequested(*m_manager, m_platform, [this] { showSettings(); });
    if (!m_manager->settings().onboarded) {
        // Saved before the greeting: if showing that ended the program, it must not do so at each start.
        m_manager->markOnboarded();
        m_settings->show(SettingsWindow::Form::welcome);
    }
}

void AppDelegate::applicationWillTerminate() {
    if (m_manager) {
        m_manager->applySystemDock(false);
    }
}

bool AppDelegate::applicationShouldHandleReopen(bool /*hasVisibleWindows*/) {
    showSettings();
    return false;
}

void AppDelegate::showSettings() {
    if (m_settings) {
        m_settings->show(SettingsWindow::Form::normal);
    }
}

Menu AppDelegate::menuNeedsUpdate() {
    if (!m_manager) {
        return {};
    }
    return statusMenu(
        *m_manager, m_platform, [this] { showSettings(); }, [this] { Q_EMIT terminate(); });
}

} // namespace quillary
