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
            [this] { applicationShouldHandleReopen(SettingsWindow::window() != nullptr); });
}

AppDelegate::~AppDelegate() {
    SettingsWindow::discard();
    SettingsWindow::setManager(nullptr);
}

void AppDelegate::applicationDidFinishLaunching() {
    docks = std::make_unique<DockManager>(platform);
    SettingsWindow::setManager(docks.get());
    statusItem = platform.makeStatusItem(statusSymbol(), "Quillary", [this] { return menuNeedsUpdate(); });
    snapshot = DebugSnapshot::runIfRequested(*docks, platform);
    if (!docks->settings().onboarded) {
        // Noted first: a greeting that ends the program must not come back at each start.
        docks->markOnboarded();
        SettingsWindow::show(SettingsWindow::Form::welcome);
    }
}

void AppDelegate::applicationWillTerminate() {
    if (docks && !terminated) {
        terminated = true;
        docks->applySystemDock(false);
    }
}

bool AppDelegate::applicationShouldHandleReopen(bool /*hasVisibleWindows*/) {
    SettingsWindow::show(SettingsWindow::Form::normal);
    return false;
}

Menu AppDelegate::menuNeedsUpdate() {
    return docks ? statusMenu(*docks, platform, [this] { Q_EMIT terminate(); }) : Menu();
}

} // namespace quillary
