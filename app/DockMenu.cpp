#include "app/DockMenu.h"

#include "app/DisplayName.h"
#include "app/DockModel.h"
#include "app/MemoryMonitor.h"
#include "app/RunningApps.h"
#include "core/RamBadge.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"

#include <algorithm>

namespace quillary {

namespace {

class DockMenuBuilder {
public:
    DockMenuBuilder(const std::shared_ptr<DockModel>& model, Platform& platform)
        : m_model(model), m_platform(platform), m_config(model->config()) {}

    Menu build(std::function<void()> showSettings) {
        if (const auto path = m_model->hoveredPath()) {
            addItem(*path);
        }
        m_menu.push_back(choices("Position", &DockConfig::edge));
        m_menu.push_back(choices("Style", &DockConfig::style));
        m_menu.push_back(choices("Magnification", &DockConfig::magnification));
        m_menu.push_back(toggle("Auto-hide", &DockConfig::autoHide));
        m_menu.push_back(toggle("Show Running Apps", &DockConfig::showRunning));
        m_menu.push_back(ClosureMenuItem::separator());
        add("Settings…", std::move(showSettings));
        return std::move(m_menu);
    }

private:
    void add(std::string title, std::function<void()> handler) {
        m_menu.emplace_back(std::move(title), std::move(handler));
    }

    /// A handler that does its work on the model while that exists.
    template<typename Work>
    [[nodiscard]] std::function<void()> onModel(Work work) const {
        return [weak = std::weak_ptr(m_model), work = std::move(work)] {
            if (const auto alive = weak.lock()) {
                work(*alive);
            }
        };
    }

    void addItem(const std::string& path) {
        const std::string name = displayName(m_platform.files(), path);
        add("Open " + name, onModel([path](DockModel& dock) { dock.open(path); }));
        if (std::ranges::find(m_config.items, path) != m_config.items.end()) {
            add("Remove from Dock", onModel([path](DockModel& dock) { dock.remove(path); }));
        } else {
            add("Keep in Dock", onModel([path](DockModel& dock) { dock.add({path}); }));
        }
        add("Show in Finder", [&system = m_platform, path] { system.workspace().reveal(path); });
        if (const RunningApplication* application = m_model->running->app(path)) {
            m_menu.push_back(ClosureMenuItem::separator());
            add("Quit " + name + freed(path),
                [&system = m_platform, quitting = *application] { system.workspace().terminate(quitting); });
        }
        m_menu.push_back(ClosureMenuItem::separator());
    }

    [[nodiscard]] std::string freed(const std::string& path) const {
        const auto usage = m_model->memory->byApp().find(path);
        return m_model->showMemory() && usage != m_model->memory->byApp().end()
                   ? " — frees " + RamBadges::text(usage->second)
                   : std::string();
    }

    template<typename Value>
    [[nodiscard]] ClosureMenuItem choices(std::string name, Value DockConfig::*field) const {
        Menu items;
        for (const Value value : allCases<Value>()) {
            items.emplace_back(
                title(value), m_config.*field == value, onModel([field, value](DockModel& dock) {
                    dock.update([field, value](DockConfig& changed) { changed.*field = value; });
                }));
        }
        return ClosureMenuItem::submenu(std::move(name), std::move(items));
    }

    [[nodiscard]] ClosureMenuItem toggle(std::string name, bool DockConfig::*field) const {
        return {std::move(name), m_config.*field, onModel([field](DockModel& dock) {
                    dock.update([field](DockConfig& changed) { changed.*field = !(changed.*field); });
                })};
    }

    const std::shared_ptr<DockModel>& m_model;
    Platform& m_platform;
    const DockConfig& m_config;
    Menu m_menu;
};

} // namespace

Menu dockMenu(const std::shared_ptr<DockModel>& model, Platform& platform,
              std::function<void()> showSettings) {
    return DockMenuBuilder(model, platform).build(std::move(showSettings));
}

} // namespace quillary
