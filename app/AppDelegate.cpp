#include "app/AppDelegate.h"

#include "app/DebugSnapshot.h"
#include "app/DockManager.h"
#include "platform/Platform.h"

namespace quillary {

AppDelegate::AppDelegate(Platform& system) : platform(system) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    docks = std::make_unique<DockManager>(platform);
    snapshot = DebugSnapshot::runIfRequested(*docks, platform);
}

void AppDelegate::applicationWillTerminate() {
    if (docks && !terminated) {
        terminated = true;
        docks->applySystemDock(false);
    }
}

} // namespace quillary
