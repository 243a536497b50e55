#pragma once

#include "core/DockEdge.h"
#include "core/DockStyle.h"
#include "core/Magnification.h"

#include <string>
#include <vector>

namespace quillary {

/// The user's choices for the dock of one screen. Every screen that has ever had a dock has a configuration,
/// connected or not.
struct DockConfig {
    /// A dock with every option at its default.
    DockConfig(std::string screenKey, std::string screenName, std::vector<std::string> items);

    /// Stable identity of the screen: its display's UUID, else its display number in decimal.
    std::string screenKey;
    /// The screen's human-readable name, for menus and settings.
    std::string screenName;
    /// Whether the screen shows a dock.
    bool enabled = true;
    DockEdge edge = DockEdge::bottom;
    /// Size of an icon at rest, in points.
    double iconSize = 48.0;
    /// Whether running applications that are not pinned are shown too.
    bool showRunning = true;
    DockStyle style = DockStyle::glass;
    Magnification magnification = Magnification::subtle;
    bool bounceOnLaunch = true;
    /// Whether the dock hides until the pointer reaches its edge.
    bool autoHide = false;
    /// The pinned items in display order: absolute paths of applications, folders and files, UTF-8.
    std::vector<std::string> items;

    bool operator==(const DockConfig&) const = default;
};

} // namespace quillary
