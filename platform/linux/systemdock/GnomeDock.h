#pragma once

#include "platform/linux/systemdock/DesktopDock.h"
#include "platform/linux/systemdock/GnomeDockSchema.h"
#include "platform/linux/systemdock/SavedValuesFile.h"

namespace quillary {

/// Dash to Dock, and Ubuntu's dock that shares its settings. `autohide` and `delay` are the keys autohide and
/// show-delay, absent when the user has set none. The dock counts as hidden when it hides itself, shows
/// itself only after the delay that hides it, and no other key keeps it on the screen. One that is kept there
/// despite the two values reads as `autohide` false.
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
    /// Sets a key, or takes the user's value away for null and for a value that the key doesn't take.
    void set(const char* key, GVariant* value);

    GnomeDockSchema::Schema m_schema;
    Released<GSettings, g_object_unref> m_settings;
    SavedValuesFile m_file;
    SystemLog& m_log;
    /// Seconds.
    double m_hidingDelay;
};

} // namespace quillary
