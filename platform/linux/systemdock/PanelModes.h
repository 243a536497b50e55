#pragma once

#include "core/Result.h"
#include "platform/linux/systemdock/SavedValuesFile.h"

#include <optional>
#include <string>

namespace quillary {

/// Reads and sets the mode in which each of a desktop's panels hides. A mode is a text in a format that
/// depends on the desktop; a panel without one has the desktop's default.
class PanelModes {
public:
    virtual ~PanelModes() = default;

    /// The panels' name in the log ("Xfce's panels").
    [[nodiscard]] virtual std::string name() const = 0;

    /// The modes by panel; empty when the desktop has no panels, or is not running.
    [[nodiscard]] virtual Result<SavedValues> read() = 0;
    /// Sets the mode of each of these panels; resets it where it is absent.
    [[nodiscard]] virtual Result<> write(const SavedValues& panels) = 0;

    /// Whether a panel in that mode is hidden until the pointer reaches its edge.
    [[nodiscard]] virtual bool isAway(const std::optional<std::string>& mode) const = 0;
    /// The mode that hides a panel whose mode is `mode`.
    [[nodiscard]] virtual std::string awayFrom(const std::optional<std::string>& mode) const = 0;
    /// The mode in which panels are always visible; absent when that is the desktop's default.
    [[nodiscard]] virtual std::optional<std::string> shown() const = 0;
    /// Whether the text is a mode that `write` can set.
    [[nodiscard]] virtual bool isMode(const std::string& text) const = 0;
};

} // namespace quillary
