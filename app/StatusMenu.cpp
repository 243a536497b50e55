#include "app/StatusMenu.h"

#include "app/DockManager.h"
#include "app/DockModel.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"

namespace quillary {

Menu statusMenu(DockManager& manager, Platform& platform, std::function<void()> showSettings,
                std::function<void()> terminate) {
    Menu menu;
    menu.emplace_back("Settings…", std::move(showSettings));
    menu.push_back(ClosureMenuItem::separator());
    // Each switch inverts what holds when it is chosen: the menu may have been open for long.
    for (const auto& model : manager.models()) {
        menu.emplace_back(
            "Dock on " + model->screenName(), model->config().enabled, [&manager, key = model->key] {
                manager.update(key, [](DockConfig& config) { config.enabled = !config.enabled; });
            });
    }
    menu.emplace_back("Hide the macOS Dock", manager.hideSystemDock(),
                      [&manager] { manager.setHideSystemDock(!manager.hideSystemDock()); });
    menu.emplace_back("Show RAM on Dock", manager.showMemorySetting(),
                      [&manager] { manager.setShowMemory(!manager.showMemorySetting()); });
    menu.push_back(ClosureMenuItem::separator());
    menu.emplace_back("Show Settings File",
                      [&manager, &platform] { platform.workspace().reveal(manager.settingsURL.string()); });
    menu.emplace_back("Quit Quillary", std::move(terminate));
    menu.back().keyEquivalent = 'q';
    return menu;
}

} // namespace quillary
