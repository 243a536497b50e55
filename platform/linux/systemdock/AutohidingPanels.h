#pragma once

#include "platform/linux/systemdock/DesktopDock.h"
#include "platform/linux/systemdock/PanelModes.h"

namespace quillary {

/// A desktop's panels as its dock, hidden by their modes; they have no delay. They count as hidden while
/// their saved values exist and at least one of the panels that the program hid still is hidden: a panel that
/// was added, or that the user has shown again, changes nothing for the others. `DockPrefs::autohide` states
/// which panels the user hides himself: all (true), not all (false), or it is absent when no panel has a mode
/// of its own; `delay` is absent.
class AutohidingPanels final : public DesktopDock {
public:
    AutohidingPanels(std::unique_ptr<PanelModes> panels, SavedValuesFile file, SystemLog& log);

    [[nodiscard]] DockPrefs read() override;
    void write(const DockPrefs& prefs) override;
    /// Nothing to wait for: the desktop has acknowledged each change.
    void synchronise() override {}

private:
    [[nodiscard]] bool isHidden(const SavedValues& now, const SavedValuesFile::Content& saved) const;
    [[nodiscard]] DockPrefs ownValues(const SavedValues& now) const;
    /// The user's own modes, also when the panels are hidden already.
    [[nodiscard]] SavedValues toPutAside(const SavedValues& now) const;
    void hide(const SavedValues& now);
    void bringBack(const SavedValues& now, const DockPrefs& prefs);
    /// The saved modes of the panels that are still hidden, where they differ from `now`.
    [[nodiscard]] SavedValues remembered(const SavedValues& now, const SavedValues& saved) const;
    [[nodiscard]] SavedValues chosen(const SavedValues& now, const DockPrefs& prefs) const;
    void logFailure(const std::string& what, const std::string& error);

    std::unique_ptr<PanelModes> m_panels;
    SavedValuesFile m_file;
    SystemLog& m_log;
    bool m_isReachable = true;
};

} // namespace quillary
