#pragma once

#include <QRectF>

#include <cstdint>
#include <optional>
#include <string>

namespace quillary {

/// One connected screen. Coordinates are global points: origin at the top-left of the primary screen, y down.
struct ScreenInfo {
    /// The system's number of the display; 0 when there is none.
    std::uint32_t displayNumber = 0;
    /// Stable identity of the physical display (text form of RFC 4122, upper case); absent when it is
    /// unknown.
    std::optional<std::string> uuid{};
    /// Human-readable name, valid UTF-8.
    std::string name{};
    /// The whole screen.
    QRectF frame{};
    /// The frame less the areas that the system's panels and menu bars reserve.
    QRectF visibleFrame{};
    /// Device pixels per point.
    double scale = 1.0;

    bool operator==(const ScreenInfo&) const = default;
};

} // namespace quillary
