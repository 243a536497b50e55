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

// A restarted system dock can disturb windows and screen geometry. After this many seconds it has settled.
constexpr double restartDuration = 1.2;

} // namespace

DockManager::DockManager(Platform& platform)
    : running(std::make_shared<RunningApps>(platform.workspace())),
      memory(std::make_shared<MemoryMonitor>(platform.scheduler(), platform.memory())),
      settingsURL(platform.applicationSupportDirectory() / "Quillary" / "settings.json"),
      m_platform(platform),
      m_icons(std::make_shared<IconCache>(platform.icons())),
      m_store(settingsURL),
      m_settings(m_store.load()) {
    connect(&m_platform.screens(), &Screens::changed, this, &DockManager::rebuild);
    connect(&m_platform.pointer(), &PointerMonitor::moved, this, &DockManager::mouseMoved);
    connect(&m_platform.workspace(), &Workspace::fullScreenChanged, this, &DockManager::followFullScreen);
    rebuild();
    applySystemDock(m_settings.hideSystemDock);
    applyMemory();
}

DockManager::~DockManager() = default;

std::string DockManager::screenKey(const ScreenInfo& screen) {
    return screen.uuid ? *screen.uuid : std::to_string(screen.displayNumber);
}

DockPanel* DockManager::panel(std::string_view key) const {
    const auto found = m_panels.find(key);
    return found == m_panels.end() ? nullptr : found->second.get();
}

void DockManager::rebuild() {
    Models next;
    for (const ScreenInfo& screen : m_platform.screens().list()) {
        const std::string key = screenKey(screen);
        if (!m_settings.dock(key)) {
            seed(key, screen);
        }
        const auto config = m_settings.dock(key);
        if (!config) {
            continue;
        }
        // Two screens may have the same key. Then they share one model, and the first of them has the panel.
        const auto known =
            std::ranges::find_if(next, [&key](const auto& candidate) { return candidate->key == key; });
        const auto model = known != next.end() ? *known : modelFor(key, *config);
        model->setScreenName(screen.name);
        model->setShowMemory(m_settings.showMemory);
        next.push_back(model);
        if (config->enabled) {
            showPanel(model, screen);
        } else {
            closePanel(key);
        }
    }
    std::erase_if(m_panels, [&next](auto& entry) {
        const bool gone =
            std::ranges::none_of(next, [&entry](const auto& model) { return model->key == entry.first; });
        if (gone) {
            entry.second->close();
        }
        return gone;
    });
    m_models = std::move(next);
    followFullScreen();
    Q_EMIT modelsChanged();
}

void DockManager::seed(const std::string& key, const ScreenInfo& screen) {
    // Filtered as all items are: the system's list may hold duplicates and invalid UTF-8.
    m_settings.docks.emplace_back(key, screen.name,
                                  DockItems::adding(m_platform.systemDock().pinnedItems(), {}));
    save();
}

std::shared_ptr<DockModel> DockManager::modelFor(const std::string& key, const DockConfig& config) {
    const auto existing =
        std::ranges::find_if(m_models, [&key](const auto& candidate) { return candidate->key == key; });
    return existing != m_models.end()
               ? *existing
               : std::make_shared<DockModel>(key, config, this, running, memory, m_platform);
}

void DockManager::showPanel(const std::shared_ptr<DockModel>& model, const ScreenInfo& screen) {
    if (DockPanel* existing = panel(model->key)) {
        existing->setTargetScreen(screen);
        existing->reposition();
        return;
    }
    auto created = std::make_unique<DockPanel>(model, screen, m_icons, m_platform,
                                               [this] { Q_EMIT settingsRequested(); });
    DockPanel& fresh = *created;
    m_panels.insert_or_assign(model->key, std::move(created));
    fresh.present();
}

void DockManager::closePanel(std::string_view key) {
    const auto found = m_panels.find(key);
    if (found != m_panels.end()) {
        const auto closing = std::move(found->second);
        m_panels.erase(found);
        closing->close();
    }
}

void DockManager::update(std::string_view key, const std::function<void(DockConfig&)>& change) {
    const auto before = m_settings.dock(key);
    m_settings.update(key, change);
    save();
    const auto after = m_settings.dock(key);
    if (!after) {
        return;
    }
    const auto model = std::ranges::find_if(
        m_models, [&after](const auto& candidate) { return candidate->key == after->screenKey; });
    if (model != m_models.end()) {
        // Keeps the model alive: a slot of its signal may rebuild the docks, which drops it.
        const auto kept = *model;
        kept->setConfig(*after);
    }
    if (!before || before->enabled != after->enabled) {
        rebuild();
    }
}

void DockManager::markOnboarded() {
    m_settings.onboarded = true;
    save();
}

void DockManager::setHideSystemDock(bool hide) {
    m_settings.hideSystemDock = hide;
    Q_EMIT hideSystemDockChanged();
    save();
    applySystemDock(hide);
}

void DockManager::setShowMemory(bool show) {
    m_settings.showMemory = show;
    Q_EMIT showMemorySettingChanged();
    save();
    applyMemory();
}

void DockManager::applySystemDock(bool hide) {
    SystemDockPreferences& systemDock = m_platform.systemDock();
    const auto plan = SystemDockHider::plan(hide, systemDock.read(), m_settings.savedSystemDock);
    if (plan.saved != m_settings.savedSystemDock) {
        m_settings.savedSystemDock = plan.saved;
        // Not logged: the values saved here only serve the next start.
        static_cast<void>(m_store.save(m_settings));
    }
    if (!plan.write) {
        return;
    }
    systemDock.write(*plan.write);
    systemDock.synchronise();
    systemDock.restart();
    rebuildAfterRestart();
}

void DockManager::rebuildAfterRestart() {
    m_rebuildWork.push_back(m_platform.scheduler().after(restartDuration, [this] {
        // All wait equally long, so this is the oldest.
        m_rebuildWork.pop_front();
        rebuild();
    }));
}

void DockManager::applyMemory() {
    const bool active = m_settings.showMemory;
    memory->setActive(active);
    for (const auto& model : m_models) {
        if (model->showMemory() != active) {
            model->setShowMemory(active);
        }
    }
}

void DockManager::mouseMoved(QPointF location) {
    for (const auto& [key, panel] : m_panels) {
        panel->movePointer(location);
    }
}

void DockManager::followFullScreen() {
    const auto frame = m_platform.workspace().fullScreenFrame();
    for (const auto& [key, panel] : m_panels) {
        panel->setCovered(frame && frame->contains(panel->targetScreen().frame.center()));
    }
}

void DockManager::save() {
    if (const auto saved = m_store.save(m_settings); !saved) {
        m_platform.log().write("Quillary: save failed " + saved.error());
    }
}

} // namespace quillary
