#pragma once

#include <span>
#include <vector>

/// The arithmetic of one row of cells, and the measures that place the row, its panel and the zones that the
/// pointer can be in. The measures of what is drawn on the row stand with what draws it. Lengths are points
/// in double precision. Along means the axis that runs along the dock's screen edge, depth the axis that runs
/// away from the edge into the screen.
namespace quillary::DockLayout {

/// Gap between two neighbouring cells, along.
inline constexpr double spacing = 6;
/// Margin before the first and after the last cell, along.
inline constexpr double pad = 8;
/// Along-width of a separator cell; separators never grow.
inline constexpr double separatorWidth = 13;
/// The smallest icon that fitting a row to its screen may produce.
inline constexpr double minimumIconSize = 20;
/// Along-length reserved for growing icons, in units of icon size times magnification amount.
inline constexpr double growthFactor = 3.4;
/// Further along-length of the panel, half of it at each end of the row.
inline constexpr double alongSlack = 28;
/// An icon grows while the pointer is closer to its centre than this many icon sizes.
inline constexpr double magnificationRadius = 2.4;

/// Gap between the screen edge and the background of the row, depth.
inline constexpr double edgeGap = 4;
/// Room for the dots between the near side of the background and the icons, depth.
inline constexpr double dotRoom = 15;
/// Margin of the background beyond the icons, depth.
inline constexpr double farMargin = 8;
/// The icon size plus this is the depth of the resting row, from the screen edge on.
inline constexpr double depthBase = dotRoom + farMargin + edgeGap;
/// Added once more to the depth of the panel.
inline constexpr double depthTail = 14;
/// Depth of the panel that is kept for the labels of a bottom or top dock.
inline constexpr double labelRoomHorizontal = 36;
/// Depth of the panel that is kept for the labels of a left or right dock.
inline constexpr double labelRoomVertical = 200;

/// How far beyond each end of the row a point still counts as on the dock, along.
inline constexpr double zoneAlongTolerance = 6;
/// How far beyond the screen edge a point still counts as on the dock or on its reveal strip.
inline constexpr double zoneBeyondEdge = 2;
/// How far past the row's depth, into the screen, a point still counts as on the dock.
inline constexpr double zoneIntoScreen = 4;
/// Depth of the strip at the screen edge that reveals a hidden dock.
inline constexpr double revealDepth = 3;
/// How far past each side of a grown icon the pointer still counts as on it, along.
inline constexpr double hitTolerance = 3;

/// Length of a row at rest: both pads, all widths and the gaps between them. An empty row has its pads alone.
[[nodiscard]] double length(std::span<const double> widths, double spacing, double pad);

/// The centre of each cell at rest, along, measured from the start of the row's first pad.
[[nodiscard]] std::vector<double> restCenters(std::span<const double> widths, double spacing, double pad);

/// How many times its size an icon is drawn when the pointer is `distance` from its resting centre: 1 +
/// `amount` at the centre, falling along a quarter cosine to 1 at `magnificationRadius` icon sizes.
[[nodiscard]] double magnifyScale(double distance, double iconSize, double amount);

/// A row whose cells have grown.
struct Shifted {
    /// The centre of each cell, along, in the coordinates of the resting centres.
    std::vector<double> centers;
    /// By how much the row became longer; half of it at each end, so its middle stays.
    double extra = 0;

    bool operator==(const Shifted&) const = default;
};

/// Spreads a row so that cells grown by `scales` keep their gaps. Growth is known for as many cells as both
/// `widths` and `scales` have; more `centers` than that are a mistake of the caller and end the program.
[[nodiscard]] Shifted shifted(std::span<const double> centers, std::span<const double> widths,
                              std::span<const double> scales);

} // namespace quillary::DockLayout
