#pragma once

#include "platform/BundleInfo.h"
#include "platform/Menu.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

class QIcon;
class QWidget;

namespace quillary {

class LoginItem;
class MemorySource;
class PanelWindow;
class PointerMonitor;
class Scheduler;
class Screens;
class SingleInstance;
class StatusItem;
class SystemDockPreferences;
class SystemLog;
class Workspace;

/// All that the operating system does for the program, in one hand. Every part lives as long as this.
class Platform {
public:
    virtual ~Platform() = default;

    [[nodiscard]] virtual Screens& screens() = 0;
    [[nodiscard]] virtual Workspace& workspace() = 0;
    [[nodiscard]] virtual SystemDockPreferences& systemDock() = 0;
    [[nodiscard]] virtual PointerMonitor& pointer() = 0;
    [[nodiscard]] virtual Scheduler& scheduler() = 0;
    [[nodiscard]] virtual SystemLog& log() = 0;
    [[nodiscard]] virtual SingleInstance& instance() = 0;
    [[nodiscard]] virtual MemorySource& memory() = 0;
    [[nodiscard]] virtual LoginItem& loginItem() = 0;
    [[nodiscard]] virtual BundleInfo bundleInfo() const = 0;
    /// Dresses a top-level widget that was never shown as a dock's window.
    [[nodiscard]] virtual std::unique_ptr<PanelWindow> makePanelWindow(QWidget& contents) = 0;
    /// Puts a symbol into the status bar. `description` is its accessible name; `menuNeedsUpdate` is asked
    /// for the menu just before each opening, on the main thread.
    [[nodiscard]] virtual std::unique_ptr<StatusItem>
    makeStatusItem(const QIcon& symbol, const std::string& description,
                   std::function<Menu()> menuNeedsUpdate) = 0;
    /// The folder under which programs keep their settings.
    [[nodiscard]] virtual std::filesystem::path applicationSupportDirectory() const = 0;
};

} // namespace quillary
