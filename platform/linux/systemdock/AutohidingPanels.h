#pragma once

#include "platform/linux/systemdock/DesktopDock.h"
#include "platform/linux/systemdock/PanelModes.h"

namespace quillary {

/// Panels that know no delay. They count as hidden while what was put aside for them is there and at least
/// one of the panels that were hidden still is, so a panel added meanwhile, or one that the user brought
/// back, changes nothing for the others. Which panels the user tucks away himself is told by `autohide`:
/// all of them (true), not all (false), or none has a mode of its own (absent); `delay` is absent.
class AutohidingPanels final : public DesktopDock {
public:
    AutohidingPanels(std::unique_ptr<PanelModes> panels, SavedValuesFile file, SystemLog& log);

    [[nodiscard]] DockPrefs read() override;
    void write(const DockPrefs& prefs) override;
    /// Nothing is left to do: a panel's desktop has answered for each of its changes.
    void synchronise() override {}

private:
    [[nodiscard]] bool isHidden(const SavedValues& now, const SavedValuesFile::Content& saved) const;
    [[nodiscard]] DockPrefs ownValues(const SavedValues& now) const;
    /// What belongs to the user, also when the panels are hidden already.
    [[nodiscard]] SavedValues toPutAside(const SavedValues& now) const;
    void hide(const SavedValues& now);
    void bringBack(const SavedValues& now, const DockPrefs& prefs);
    /// The modes that belong to the panels that are still away; those without a change left out.
    [[nodiscard]] SavedValues remembered(const SavedValues& now, const SavedValues& saved) const;
    [[nodiscard]] SavedValues chosen(const SavedValues& now, const DockPrefs& prefs) const;
    void logFailure(const std::string& what, const std::string& error);

    std::unique_ptr<PanelModes> m_panels;
    SavedValuesFile m_file;
    SystemLog& m_log;
    bool m_isReachable = true;
};

} // namespace quillary
