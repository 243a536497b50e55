#pragma once

#include "core/DockPrefs.h"

#include <filesystem>
#include <memory>

namespace quillary {

class CurrentDesktop;
class SystemLog;

/// The dock or the panels of one desktop environment, hidden with that desktop's own public settings. Each
/// operation takes about a second at the most, however long the desktop's services keep silent, and starts
/// none of them. What cannot be done is one line of the log.
class DesktopDock {
public:
    virtual ~DesktopDock() = default;

    /// `DockPrefs::hidden` while the dock is as `write(DockPrefs::hidden)` left it, and also when there is
    /// none or it cannot be asked, so that nothing is done about it. Else the user's own values as far as
    /// the two fields hold them. Values that were put aside for a dock that is no longer hidden are
    /// forgotten: the user has changed it by hand.
    [[nodiscard]] virtual DockPrefs read() = 0;
    /// `DockPrefs::hidden` puts the user's own values aside, in a file, and hides the dock; nothing is
    /// changed when that file cannot be written. Other values bring back what was put aside, to the letter,
    /// except where the user has changed something since. When nothing usable was put aside they are set
    /// themselves, and what else hides the dock goes back to the desktop's defaults.
    virtual void write(const DockPrefs& prefs) = 0;
    /// Waits until what was written has reached the desktop's storage.
    virtual void synchronise() = 0;

    /// The dock of the desktop environment; none when it has none that can be hidden. Values are put aside in
    /// `folder`, one file for each desktop; `log` must live as long as the dock.
    [[nodiscard]] static std::unique_ptr<DesktopDock> of(const CurrentDesktop& desktop,
                                                         const std::filesystem::path& folder, SystemLog& log);
};

} // namespace quillary
