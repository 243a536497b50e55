#pragma once

#include "platform/SystemDockPreferences.h"

namespace quillary {

/// The preferences of macOS's Dock, in the domain "com.apple.dock". The Dock reads them when it starts.
class MacSystemDockPreferences final : public SystemDockPreferences {
public:
    [[nodiscard]] DockPrefs read() const override;
    void write(const DockPrefs& prefs) override;
    void synchronise() override;
    void restart() override;
    [[nodiscard]] std::vector<std::string> pinnedItems() const override;
};

} // namespace quillary
