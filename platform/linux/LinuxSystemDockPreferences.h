#pragma once

#include "platform/SystemDockPreferences.h"

namespace quillary {

/// The desktop's own dock as far as it is common to desktops: what is pinned to it. Desktops share no way to
/// hide their panels, so writing, synchronising and restarting do nothing.
class LinuxSystemDockPreferences final : public SystemDockPreferences {
public:
    /// Always `DockPrefs::hidden`: a desktop without a dock that can be switched off counts as one whose dock
    /// is hidden already, so that hiding it changes nothing and no values are kept as the user's own.
    [[nodiscard]] DockPrefs read() const override;
    void write(const DockPrefs& prefs) override;
    void synchronise() override;
    void restart() override;

    /// The items of a macOS Dock when its preference file stands under the home folder; else the favourites
    /// of the desktop in use with the file manager before them; else file manager, browser, terminal, text
    /// editor and settings. Entries that aren't installed are left out,
    /// and paths that are no UTF-8, which the settings could not keep.
    [[nodiscard]] std::vector<std::string> pinnedItems() const override;
};

} // namespace quillary
