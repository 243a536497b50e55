#pragma once

#include "app/view/DockScene.h"

#include <QPointF>

namespace quillary {

/// The position of a scene on a device.
struct PixelGrid {
    /// The panel's origin, in points of the device.
    QPointF origin{};
    /// Device pixels per point.
    double ratio = 1;
    bool operator==(const PixelGrid&) const = default;
};

/// The place at which the nearest device pixel begins; both in points of the device.
[[nodiscard]] double onWholePixel(double place, double ratio);
/// Whether two sizes in device pixels are drawn as one: they differ by less than half a pixel.
[[nodiscard]] bool areSameSize(double one, double other);

/// The scene with everything that is drawn on whole device pixels moved to those: icons of the resting size
/// with what belongs to them, and the sides of the background, of separators and of the label. Scenes that
/// look the same are equal then, although magnification moved their parts by fractions of a pixel.
[[nodiscard]] DockScene fittedToPixels(DockScene scene, const PixelGrid& grid);

} // namespace quillary
