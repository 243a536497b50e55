#pragma once

#include "core/DockPrefs.h"

#include <filesystem>
#include <memory>

namespace quillary {

class CurrentDesktop;
class SystemLog;

/// The dock or the panels of one desktop environment, hidden with that desktop's public settings. Each
/// operation takes about a second at most, even when the desktop's services do not answer, and starts no
/// service. A failure is one line in the log.
class DesktopDock {
public:
    virtual ~DesktopDock() = default;

    /// `DockPrefs::hidden` while the dock is as `write(DockPrefs::hidden)` left it, and also when there is no
    /// dock or it cannot be read, so that the caller changes nothing. Otherwise the user's own values, as far
    /// as the two fields can express them. Removes the saved values of a dock that is no longer hidden: the
    /// user has changed it by hand.
    [[nodiscard]] virtual DockPrefs read() = 0;
    /// `DockPrefs::hidden` saves the user's own values in a file and hides the dock; when that file cannot be
    /// written, nothing is changed. Any other value restores the saved values exactly, except those that the
    /// user has changed since. Without usable saved values, `prefs` itself is set, and other settings that
    /// hide the dock are reset to the desktop's defaults.
    virtual void write(const DockPrefs& prefs) = 0;
    /// Waits until the desktop has stored the changes.
    virtual void synchronise() = 0;

    /// The dock of the desktop environment; null when it has none that can be hidden. Values are saved in
    /// `folder`, one file for each desktop; `log` must outlive the dock.
    [[nodiscard]] static std::unique_ptr<DesktopDock> of(const CurrentDesktop& desktop,
                                                         const std::filesystem::path& folder, SystemLog& log);
};

} // namespace quillary
