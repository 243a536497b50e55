#pragma once

#include "core/Settings.h"
#include "core/SettingsStore.h"
#include "platform/ScreenInfo.h"

#include <QObject>
#include <QPointF>

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillary {

class DockModel;
class DockPanel;
class IconCache;
class MemoryMonitor;
class Platform;
class RunningApps;
class ScheduledTask;

/// Owns all docks: one model for each connected screen and one panel for each screen whose dock is on. Keeps
/// them in step with the screens and the settings, and saves every change at once.
///
/// A save that fails writes one line to the log; the settings in memory stay in force.
class DockManager : public QObject {
    Q_OBJECT

public:
    using Models = std::vector<std::shared_ptr<DockModel>>;

    /// Loads the settings and puts every dock on its screen. The platform must outlive the manager.
    explicit DockManager(Platform& platform);
    ~DockManager() override;

    /// The system that the docks live on.
    [[nodiscard]] Platform& system() const { return m_platform; }

    const std::shared_ptr<RunningApps> running;
    const std::shared_ptr<MemoryMonitor> memory;
    /// The settings file.
    const std::filesystem::path settingsURL;

    /// The stable identity of a screen: its UUID, else its display number in decimal.
    [[nodiscard]] static std::string screenKey(const ScreenInfo& screen);

    /// One model for each connected screen, in the order of the screens.
    [[nodiscard]] const Models& models() const { return m_models; }
    /// The open dock of a screen; null when it has none.
    [[nodiscard]] DockPanel* panel(std::string_view key) const;
    [[nodiscard]] const std::map<std::string, std::unique_ptr<DockPanel>, std::less<>>& panels() const {
        return m_panels;
    }
    /// The settings in force; the file holds a copy of them.
    [[nodiscard]] const Settings& settings() const { return m_settings; }
    /// Whether the user wants the desktop's own dock hidden.
    [[nodiscard]] bool hideSystemDock() const { return m_settings.hideSystemDock; }
    /// Whether the user wants memory figures on the docks.
    [[nodiscard]] bool showMemorySetting() const { return m_settings.showMemory; }

    /// Changes the configuration of a screen, saves, and hands it to the screen's model; switching a dock on
    /// or off rebuilds. A key without configuration changes nothing.
    void update(std::string_view key, const std::function<void(DockConfig&)>& change);
    /// Records in the settings, and saves, that the first run is over.
    void markOnboarded();
    /// Switches the hiding of the desktop's own dock: published, saved and applied, in this order.
    void setHideSystemDock(bool hide);
    /// Switches the memory display of all docks: published, saved and applied, in this order.
    void setShowMemory(bool show);
    /// Hides the desktop's own dock, or restores it as it was found.
    void applySystemDock(bool hide);

Q_SIGNALS:
    void modelsChanged();
    void hideSystemDockChanged();
    void showMemorySettingChanged();
    /// The user asked for the settings, in the menu of a dock.
    void settingsRequested();

private:
    void rebuild();
    void rebuildAfterRestart();
    std::shared_ptr<DockModel> modelFor(const std::string& key, const DockConfig& config);
    void seed(const std::string& key, const ScreenInfo& screen);
    void showPanel(const std::shared_ptr<DockModel>& model, const ScreenInfo& screen);
    void closePanel(std::string_view key);
    void applyMemory();
    void mouseMoved(QPointF location);
    void followFullScreen();
    void save();

    Platform& m_platform;
    std::shared_ptr<IconCache> m_icons;
    SettingsStore m_store;
    Settings m_settings;
    Models m_models;
    std::map<std::string, std::unique_ptr<DockPanel>, std::less<>> m_panels;
    // One for each restart of the system dock, the oldest first.
    std::deque<std::unique_ptr<ScheduledTask>> m_rebuildWork;
};

} // namespace quillary
