#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>

#include <string>
#include <vector>

namespace quillary {

/// One screen in the X server's device pixels.
struct NativeScreen {
    QRect geometry;
    /// Device pixels per point.
    double scale = 1.0;

    /// The screen, or a part of it, in global points. Qt keeps a screen's origin in device pixels and scales
    /// what lies inside, from that origin, to whole points; this is the same mapping, so that frames agree
    /// with Qt's windows.
    [[nodiscard]] QRectF toPoints(const QRect& native) const;
    [[nodiscard]] QPointF toPoints(QPoint native) const;

    bool operator==(const NativeScreen&) const = default;
};

/// The point in global points by the screen that holds it, else by the nearest one; unscaled when there is no
/// screen.
[[nodiscard]] QPointF toGlobalPoints(const std::vector<NativeScreen>& screens, QPoint native);

/// The rectangle in global points: the parts of it on all screens together, or where it would lie by the
/// nearest screen when it is on none.
[[nodiscard]] QRectF toGlobalPoints(const std::vector<NativeScreen>& screens, const QRect& native);

} // namespace quillary
