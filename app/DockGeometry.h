#pragma once

#include "app/DockCell.h"
#include "core/DockConfig.h"
#include "core/DockLayout.h"

#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QSizeF>

#include <optional>
#include <span>
#include <vector>

namespace quillary {

/// The layout of one dock: a value made from a configuration, its cells and the longest length that the
/// screen allows.
///
/// All lengths are points. Points and rectangles are in the panel's own coordinates: origin top-left, y down.
/// *Along* is the axis that runs along the screen edge, *depth* the distance from that edge into the screen.
class DockGeometry {
public:
    /// Fits the icon size: the configured one unless the whole panel would exceed `maxLength`, then the
    /// largest whole number of points that fits, but at least 20.
    DockGeometry(const DockConfig& config, std::span<const DockCell> cells, double maxLength);
    /// The same with an icon size other than the configured one.
    DockGeometry(const DockConfig& config, double iconSize, std::span<const DockCell> cells,
                 double maxLength);

    DockEdge edge;
    DockStyle style;
    /// How much an icon right under the pointer grows, as a fraction.
    double amount;
    /// The icon size after fitting.
    double size;
    /// Along-width of each cell at rest.
    std::vector<double> widths;
    /// Resting centre of each cell, along, from the start of the row.
    std::vector<double> restCenters;
    /// Along-length of the resting row, its margins included.
    double restLen;

    bool operator==(const DockGeometry&) const = default;

    /// Along-length reserved for magnification.
    [[nodiscard]] double growthRoom() const;
    /// Along-length of the panel.
    [[nodiscard]] double alongLength() const;
    /// Where the resting row starts in the panel.
    [[nodiscard]] double rowOffset() const;
    /// The size of the panel.
    [[nodiscard]] QSizeF panelSize() const;

    /// The size of the window that shows the panel, in whole points.
    [[nodiscard]] QSize frameSize() const;
    /// Where the panel's coordinates begin in that window. Their sides at the screen edge coincide, so that
    /// rounding moves nothing away from the edge.
    [[nodiscard]] QPointF frameOrigin() const;

    /// The along-coordinate of a point.
    [[nodiscard]] double along(QPointF point) const;
    /// The distance of a point from the screen edge; negative beyond it.
    [[nodiscard]] double depth(QPointF point) const;
    /// The point with this along-coordinate and this distance from the screen edge.
    [[nodiscard]] QPointF point(double along, double depth) const;

    /// One scale per cell for a pointer at `mouseAxis` along; all 1 without a pointer. `cells` must be those
    /// the geometry was built from.
    [[nodiscard]] std::vector<double> scales(std::optional<double> mouseAxis,
                                             std::span<const DockCell> cells) const;
    /// The centres of the cells along the panel with those scales, and by how much they lengthen the row.
    [[nodiscard]] DockLayout::Shifted layout(std::span<const double> scales) const;
    /// Whether the pointer counts as on an icon of that centre and length, all along: 3 points beyond either
    /// end still do.
    [[nodiscard]] static bool isOnIcon(double mouseAxis, double center, double length);
    /// The first item cell whose magnified extent, widened by 3 points at each side, holds the
    /// pointer's along-coordinate.
    [[nodiscard]] std::optional<std::size_t> hitTest(double mouseAxis, std::span<const DockCell> cells,
                                                     std::span<const double> centers,
                                                     std::span<const double> scales) const;

    /// Where the pointer was before a movement. On the dock, icons are magnified and the zone reaches to
    /// them.
    enum class Pointer { offDock, onDock };

    /// Whether a pointer at the point is on the visible dock.
    [[nodiscard]] bool isInZone(QPointF point, Pointer before) const;
    /// Whether the pointer touches the strip at the screen edge that reveals a hidden dock.
    [[nodiscard]] bool isInRevealStrip(QPointF point) const;
    /// The part of the window that takes clicks: its whole points for which isInZone holds. In the window's
    /// coordinates.
    [[nodiscard]] QRect inputZone(Pointer before) const;

private:
    struct Zone {
        double alongMin, alongMax, depthMin, depthMax;
    };
    [[nodiscard]] Zone zone(Pointer before) const;
    [[nodiscard]] double magnifiedScale(double mouseAxis, std::size_t index) const;
};

} // namespace quillary
