#pragma once

#include "platform/linux/systemdock/DesktopDock.h"
#include "platform/linux/systemdock/GnomeDockSchema.h"
#include "platform/linux/systemdock/SavedValuesFile.h"

namespace quillary {

/// Dash to Dock and Ubuntu's dock, which share their settings. `DockPrefs::autohide` and `delay` (seconds)
/// are the keys autohide and show-delay, absent when the user has not set them. The dock counts as hidden
/// when it hides automatically, appears only after `GnomeDockSchema::hidingDelay`, and no other key keeps it
/// on the screen. When another key does, `autohide` reads as false.
class GnomeDock final : public DesktopDock {
public:
    /// `schema` must not be null.
    GnomeDock(GnomeDockSchema::Schema schema, SavedValuesFile file, SystemLog& log);

    [[nodiscard]] DockPrefs read() override;
    void write(const DockPrefs& prefs) override;
    void synchronise() override;

private:
    [[nodiscard]] bool isHidden() const;
    [[nodiscard]] bool canHide() const;
    [[nodiscard]] SavedValues toPutAside() const;
    void hide();
    void bringBack(const SavedValues& values);
    void choose(const DockPrefs& prefs);
    /// Sets a key; resets it when `value` is null or the schema rejects it.
    void set(const char* key, GVariant* value);

    GnomeDockSchema::Schema m_schema;
    Released<GSettings, g_object_unref> m_settings;
    SavedValuesFile m_file;
    SystemLog& m_log;
    /// Seconds.
    double m_hidingDelay;
};

} // namespace quillary
