#pragma once

#include "core/DockEdge.h"

#include <QPolygonF>
#include <QRectF>

namespace quillary {

/// The outline of a shelf: a trapezoid whose long side lies towards the screen edge, a ledge seen in
/// perspective.
struct ShelfShape {
    DockEdge edge;

    /// How far each end of the far side is drawn in, for a shelf of that depth. Points.
    [[nodiscard]] static double slant(double depth);
    /// The four corners in a rectangle whose y grows downwards.
    [[nodiscard]] QPolygonF path(const QRectF& rect) const;
    /// The same with another slant, for a rectangle that isn't in points.
    [[nodiscard]] QPolygonF path(const QRectF& rect, double slant) const;
};

} // namespace quillary
