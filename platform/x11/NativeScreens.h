#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>

#include <string>
#include <vector>

namespace quillary {

/// A screen in the X server's coordinates.
struct NativeScreen {
    /// Device pixels on the root window.
    QRect geometry;
    /// Device pixels per point.
    double scale = 1.0;

    /// Converts the screen, or a part of it, from device pixels to global points. This is Qt's own mapping,
    /// so that frames agree with its windows: a screen's origin stays in device pixels, and everything on the
    /// screen is scaled from there and rounded to whole points.
    [[nodiscard]] QRectF toPoints(const QRect& native) const;
    [[nodiscard]] QPointF toPoints(QPoint native) const;

    bool operator==(const NativeScreen&) const = default;
};

/// Converts a point from device pixels to global points, by the screen that contains it or else the nearest
/// one. Unscaled when there is no screen.
[[nodiscard]] QPointF toGlobalPoints(const std::vector<NativeScreen>& screens, QPoint native);

/// Converts a rectangle from device pixels to global points: the union of its parts on all screens. One that
/// is on no screen is placed by the screen nearest to its corner and keeps its size.
[[nodiscard]] QRectF toGlobalPoints(const std::vector<NativeScreen>& screens, const QRect& native);

} // namespace quillary
