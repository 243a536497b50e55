#pragma once

#include "platform/SystemDockPreferences.h"

namespace quillary {

/// The desktop's own dock as far as it is common to desktops: what is pinned to it. Desktops share no way to
/// hide their panels, so its two preferences are always absent, and writing, synchronising and restarting do
/// nothing.
class LinuxSystemDockPreferences final : public SystemDockPreferences {
public:
    [[nodiscard]] DockPrefs read() const override;
    void write(const DockPrefs& prefs) override;
    void synchronise() override;
    void restart() override;

    /// The items of a macOS Dock when its preference file stands under the home folder; else the favourites
    /// of the desktop in use with the file manager before them; else file manager, browser, terminal, text
    /// editor and settings. Entries that aren't installed are left out.
    [[nodiscard]] std::vector<std::string> pinnedItems() const override;
};

} // namespace quillary
