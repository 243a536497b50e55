#pragma once

#include "platform/SystemDockPreferences.h"
#include "platform/linux/LinuxFolders.h"

#include <filesystem>
#include <memory>

namespace quillary {

class DesktopDock;
class DesktopEntries;
class SystemLog;

/// The desktop's own dock: Dash to Dock and Ubuntu's dock, Xfce's panels and Plasma's, each hidden with its
/// desktop's settings. What XDG_CURRENT_DESKTOP names is looked for at the first reading; on other desktops
/// nothing is ever asked.
class LinuxSystemDockPreferences final : public SystemDockPreferences {
public:
    /// `entries` and `log` must outlive this. While the dock is hidden, the user's own values are kept in
    /// `stateFolder`.
    LinuxSystemDockPreferences(const DesktopEntries& entries, SystemLog& log,
                               std::filesystem::path stateFolder = LinuxFolders::ownConfiguration());
    ~LinuxSystemDockPreferences() override;
    LinuxSystemDockPreferences(const LinuxSystemDockPreferences&) = delete;
    LinuxSystemDockPreferences& operator=(const LinuxSystemDockPreferences&) = delete;

    /// `DockPrefs::hidden` on a desktop without a dock that can be hidden: it counts as one whose dock is
    /// hidden already, so that hiding it changes nothing and no values are kept as the user's own. Waits a
    /// second at the most, as the two operations after it do.
    [[nodiscard]] DockPrefs read() const override;
    void write(const DockPrefs& prefs) override;
    void synchronise() override;
    /// Nothing to do: these docks follow their settings while they run.
    void restart() override {}

    /// The items of a macOS Dock when its preference file stands under the home folder; else the favourites
    /// of the desktop in use with the file manager before them; else file manager, browser, terminal, text
    /// editor and settings. Entries that aren't installed are left out, and paths that are not UTF-8, which
    /// the settings could not keep.
    [[nodiscard]] std::vector<std::string> pinnedItems() const override;

private:
    [[nodiscard]] DesktopDock* dock() const;

    const DesktopEntries& m_entries;
    SystemLog& m_log;
    std::filesystem::path m_stateFolder;
    // Looked for when it is first needed; null also when the desktop has none.
    mutable bool m_isDockLookedFor = false;
    mutable std::unique_ptr<DesktopDock> m_dock;
};

} // namespace quillary
