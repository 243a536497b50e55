#include "app/DockManager.h"

#include "app/DockModel.h"
#include "app/DockPanel.h"
#include "app/MemoryMonitor.h"
#include "app/RunningApps.h"
#include "app/view/IconCache.h"
#include "core/DockItems.h"
#include "core/SystemDockHider.h"
#include "platform/MemorySource.h"
#include "platform/Platform.h"
#include "platform/PointerMonitor.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/SystemDockPreferences.h"
#include "platform/SystemLog.h"
#include "platform/Workspace.h"

#include <algorithm>
#include <set>

namespace quillary {

namespace {

// A restarted system dock can disturb windows and screen geometry: by then it has settled.
constexpr double rebuildAfterRestart = 1.2;

} // namespace

DockManager::DockManager(Platform& system)
    : running(std::make_shared<RunningApps>(system.workspace())),
      memory(std::make_shared<MemoryMonitor>(system.scheduler(), system.memory())),
      settingsURL(system.applicationSupportDirectory() / "Quillary" / "settings.json"),
      platform(system),
      icons(std::make_shared<IconCache>(system.icons())),
      store(settingsURL),
      current(store.load()) {
    connect(&platform.screens(), &Screens::changed, this, &DockManager::rebuild);
    connect(&platform.pointer(), &PointerMonitor::moved, this, &DockManager::mouseMoved);
    connect(&platform.workspace(), &Workspace::fullScreenChanged, this, &DockManager::followFullScreen);
    rebuild();
    applySystemDock(current.hideSystemDock);
    applyMemory();
}

DockManager::~DockManager() = default;

std::string DockManager::screenKey(const ScreenInfo& screen) {
    return screen.uuid ? *screen.uuid : std::to_string(screen.displayNumber);
}

DockPanel* DockManager::panel(std::string_view key) const {
    const auto found = open.find(key);
    return found == open.end() ? nullptr : found->second.get();
}

void DockManager::rebuild() {
    Models next;
    for (const ScreenInfo& screen : platform.screens().list()) {
        const std::string key = screenKey(screen);
        if (!current.dock(key)) {
            seed(key, screen);
        }
        const auto config = current.dock(key);
        if (!config) {
            continue;
        }
        // Two screens may share a key; the first then has the model, and both are told apart by nothing.
        const auto known =
            std::ranges::find_if(next, [&key](const auto& candidate) { return candidate->key == key; });
        const auto model = known != next.end() ? *known : modelFor(key, *config);
        model->setScreenName(screen.name);
        model->setShowMemory(current.showMemory);
        next.push_back(model);
        if (config->enabled) {
            showPanel(model, screen);
        } else {
            closePanel(key);
        }
    }
    std::erase_if(open, [&next](auto& entry) {
        const bool gone =
            std::ranges::none_of(next, [&entry](const auto& model) { return model->key == entry.first; });
        if (gone) {
            entry.second->close();
        }
        return gone;
    });
    published = std::move(next);
    followFullScreen();
    Q_EMIT modelsChanged();
}

void DockManager::seed(const std::string& key, const ScreenInfo& screen) {
    // Through the list's own rule: what the system names may repeat itself or be no text.
    current.docks.emplace_back(key, screen.name, DockItems::adding(platform.systemDock().pinnedItems(), {}));
    save();
}

std::shared_ptr<DockModel> DockManager::modelFor(const std::string& key, const DockConfig& config) {
    const auto existing =
        std::ranges::find_if(published, [&key](const auto& candidate) { return candidate->key == key; });
    return existing != published.end()
               ? *existing
               : std::make_shared<DockModel>(key, config, this, running, memory, platform);
}

void DockManager::showPanel(const std::shared_ptr<DockModel>& model, const ScreenInfo& screen) {
    if (DockPanel* existing = panel(model->key)) {
        existing->setTargetScreen(screen);
        existing->reposition();
        return;
    }
    auto created =
        std::make_unique<DockPanel>(model, screen, icons, platform, [this] { Q_EMIT settingsRequested(); });
    DockPanel& fresh = *created;
    open.insert_or_assign(model->key, std::move(created));
    fresh.present();
}

void DockManager::closePanel(std::string_view key) {
    const auto found = open.find(key);
    if (found != open.end()) {
        const auto closing = std::move(found->second);
        open.erase(found);
        closing->close();
    }
}

void DockManager::update(std::string_view key, const std::function<void(DockConfig&)>& change) {
    const auto before = current.dock(key);
    current.update(key, change);
    save();
    const auto after = current.dock(key);
    if (!after) {
        return;
    }
    const auto model = std::ranges::find_if(
        published, [&after](const auto& candidate) { return candidate->key == after->screenKey; });
    if (model != published.end()) {
        // The model is kept alive: what it tells may end in a rebuild that drops it.
        const auto kept = *model;
        kept->setConfig(*after);
    }
    if (!before || before->enabled != after->enabled) {
        rebuild();
    }
}

void DockManager::markOnboarded() {
    current.onboarded = true;
    save();
}

void DockManager::setHideSystemDock(bool hide) {
    current.hideSystemDock = hide;
    Q_EMIT hideSystemDockChanged();
    save();
    applySystemDock(hide);
}

void DockManager::setShowMemory(bool show) {
    current.showMemory = show;
    Q_EMIT showMemorySettingChanged();
    save();
    applyMemory();
}

void DockManager::applySystemDock(bool hide) {
    SystemDockPreferences& systemDock = platform.systemDock();
    const auto plan = SystemDockHider::plan(hide, systemDock.read(), current.savedSystemDock);
    if (plan.saved != current.savedSystemDock) {
        current.savedSystemDock = plan.saved;
        // What is remembered here serves the next start only: a failure to save it is nobody's news.
        static_cast<void>(store.save(current));
    }
    if (!plan.write) {
        return;
    }
    systemDock.write(*plan.write);
    systemDock.synchronise();
    systemDock.restart();
    rebuildWork = platform.scheduler().after(rebuildAfterRestart, [this] { rebuild(); });
}

void DockManager::applyMemory() {
    const bool active = current.showMemory;
    memory->setActive(active);
    for (const auto& model : published) {
        if (model->showMemory() != active) {
            model->setShowMemory(active);
        }
    }
}

void DockManager::mouseMoved(QPointF location) {
    for (const auto& [key, panel] : open) {
        panel->movePointer(location);
    }
}

void DockManager::followFullScreen() {
    const auto frame = platform.workspace().fullScreenFrame();
    for (const auto& [key, panel] : open) {
        panel->setCovered(frame && frame->contains(panel->targetScreen().frame.center()));
    }
}

void DockManager::save() {
    if (const auto saved = store.save(current); !saved) {
        platform.log().write("Quillary: save failed " + saved.error());
    }
}

} // namespace quillary
