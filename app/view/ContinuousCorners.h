#pragma once

#include <QPainterPath>
#include <QRectF>

namespace quillary {

/// Rounded rectangles whose curvature runs in gradually from the straight sides, instead of jumping to that
/// of a circle.
namespace ContinuousCorners {

/// How much of a side each corner takes up at most, as a multiple of its radius.
constexpr double reach = 1.6;

/// The outline. A side too short for the gradual part of its two corners gets less of it, down to a circle's
/// arc; the radius is at most half the shorter side.
[[nodiscard]] QPainterPath path(const QRectF& rect, double radius);

} // namespace ContinuousCorners

} // namespace quillary
