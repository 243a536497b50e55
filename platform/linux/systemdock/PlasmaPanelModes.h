#pragma once

#include "platform/linux/systemdock/PanelModes.h"

namespace quillary {

/// Plasma's panels through the scripting interface of plasmashell (D-Bus method
/// org.kde.PlasmaShell.evaluateScript): `hiding` of each panel, in Plasma's own words ("none", "autohide"). A
/// panel's name is its number.
class PlasmaPanelModes final : public PanelModes {
public:
    [[nodiscard]] std::string name() const override { return "Plasma's panels"; }
    [[nodiscard]] Result<SavedValues> read() override;
    [[nodiscard]] Result<> write(const SavedValues& panels) override;
    [[nodiscard]] bool isAway(const std::optional<std::string>& mode) const override;
    [[nodiscard]] std::string awayFrom(const std::optional<std::string>& mode) const override;
    [[nodiscard]] std::optional<std::string> shown() const override;
    /// One word of letters only, so that nothing can be injected into the script.
    [[nodiscard]] bool isMode(const std::string& text) const override;
};

} // namespace quillary
