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

AppDelegate::AppDelegate(Platform& system) : platform(system) {
    connect(&platform.instance(), &SingleInstance::reopened, this,
            [this] { applicationShouldHandleReopen(settingsWindow && settingsWindow->window() != nullptr); });
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    docks = std::make_unique<DockManager>(platform);
    settingsWindow = std::make_unique<SettingsWindow>(*docks);
    connect(docks.get(), &DockManager::settingsRequested, this, &AppDelegate::showSettings);
    statusItem = platform.makeStatusItem(statusSymbol(), "Quillary", [this] { return menuNeedsUpdate(); });
    snapshot = DebugSnapshot::runIfRequested(*docks, platform, [this] { showSettings(); });
    if (!docks->settings().onboarded) {
        // Noted first: a greeting that ends the program must not come back at each start.
        docks->markOnboarded();
        settingsWindow->show(SettingsWindow::Form::welcome);
    }
}

void AppDelegate::applicationWillTerminate() {
    if (docks) {
        docks->applySystemDock(false);
    }
}

bool AppDelegate::applicationShouldHandleReopen(bool /*hasVisibleWindows*/) {
    showSettings();
    return false;
}

void AppDelegate::showSettings() {
    if (settingsWindow) {
        settingsWindow->show(SettingsWindow::Form::normal);
    }
}

Menu AppDelegate::menuNeedsUpdate() {
    if (!docks) {
        return {};
    }
    return statusMenu(
        *docks, platform, [this] { showSettings(); }, [this] { Q_EMIT terminate(); });
}

} // namespace quillary
