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

class FileFacts;
class FileIcons;
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

/// Everything that the operating system provides to the program. The platform owns its parts, which live as
/// long as it does.
class Platform {
public:
    virtual ~Platform() = default;

    [[nodiscard]] virtual Screens& screens() = 0;
    [[nodiscard]] virtual Workspace& workspace() = 0;
    [[nodiscard]] virtual const FileFacts& files() const = 0;
    [[nodiscard]] virtual const FileIcons& icons() const = 0;
    [[nodiscard]] virtual SystemDockPreferences& systemDock() = 0;
    [[nodiscard]] virtual PointerMonitor& pointer() = 0;
    [[nodiscard]] virtual Scheduler& scheduler() = 0;
    [[nodiscard]] virtual SystemLog& log() = 0;
    [[nodiscard]] virtual SingleInstance& instance() = 0;
    [[nodiscard]] virtual MemorySource& memory() = 0;
    [[nodiscard]] virtual LoginItem& loginItem() = 0;
    [[nodiscard]] virtual BundleInfo bundleInfo() const = 0;
    /// Turns a top-level widget that was never shown into a dock's window.
    [[nodiscard]] virtual std::unique_ptr<PanelWindow> makePanelWindow(QWidget& contents) = 0;
    /// Adds a symbol to the status bar. `description` is its accessible name; `menuNeedsUpdate` builds the
    /// menu each time before it opens, on the main thread.
    [[nodiscard]] virtual std::unique_ptr<StatusItem>
    makeStatusItem(const QIcon& symbol, const std::string& description,
                   std::function<Menu()> menuNeedsUpdate) = 0;
    /// The folder in which programs store their settings. Absolute.
    [[nodiscard]] virtual std::filesystem::path applicationSupportDirectory() const = 0;
};

} // namespace quillary
