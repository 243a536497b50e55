#pragma once

#include "platform/linux/systemdock/PanelModes.h"

namespace quillary {

/// Xfce's panels through xfconf (D-Bus service org.xfce.Xfconf): the property autohide-behavior of each panel
/// that the channel xfce4-panel lists, 0 never, 1 when windows need the space, 2 always. A mode is a value in
/// GVariant's text format, with its type ("uint32 2"), because a property keeps the type it was set with. A
/// panel's name is that of its property ("panel-1").
class XfcePanelModes final : public PanelModes {
public:
    [[nodiscard]] std::string name() const override { return "Xfce's panels"; }
    [[nodiscard]] Result<SavedValues> read() override;
    [[nodiscard]] Result<> write(const SavedValues& panels) override;
    [[nodiscard]] bool isAway(const std::optional<std::string>& mode) const override;
    [[nodiscard]] std::string awayFrom(const std::optional<std::string>& mode) const override;
    [[nodiscard]] std::optional<std::string> shown() const override { return std::nullopt; }
    [[nodiscard]] bool isMode(const std::string& text) const override;
};

} // namespace quillary
