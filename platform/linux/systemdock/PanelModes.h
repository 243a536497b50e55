#pragma once

#include "core/Result.h"
#include "platform/linux/systemdock/SavedValuesFile.h"

#include <optional>
#include <string>

namespace quillary {

/// A desktop's panels, each with a mode of hiding that can be set. Modes are texts in a form of the
/// desktop's own; a panel without one has the desktop's default.
class PanelModes {
public:
    virtual ~PanelModes() = default;

    /// What the log calls them ("Xfce's panels").
    [[nodiscard]] virtual std::string name() const = 0;

    /// The panels and their modes; empty when the desktop has none, or isn't there.
    [[nodiscard]] virtual Result<SavedValues> read() = 0;
    /// Gives each of the panels the mode, or takes its mode away.
    [[nodiscard]] virtual Result<> write(const SavedValues& panels) = 0;

    /// Whether a panel in that mode is off the screen but for the pointer at its edge.
    [[nodiscard]] virtual bool isAway(const std::optional<std::string>& mode) const = 0;
    /// The mode to give to a panel that is in the given one, so that it is away.
    [[nodiscard]] virtual std::string awayFrom(const std::optional<std::string>& mode) const = 0;
    /// The desktop's default, in which panels are always seen.
    [[nodiscard]] virtual std::optional<std::string> shown() const = 0;
    /// Whether the text is a mode that `write` can set.
    [[nodiscard]] virtual bool isMode(const std::string& text) const = 0;
};

} // namespace quillary
