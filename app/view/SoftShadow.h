#pragma once

#include <QColor>
#include <QImage>

namespace quillary {

/// Gaussian shadows. All lengths are device pixels; the standard deviation is half the radius.
namespace SoftShadow {

/// How far a shadow extends beyond what casts it.
[[nodiscard]] int reach(double radius);

/// The shadow of a picture: its opacity, blurred, in that colour. It is as large as the picture, so a margin
/// of `reach` around what casts it must be clear.
[[nodiscard]] QImage cast(const QImage& alpha, double radius, const QColor& colour);

} // namespace SoftShadow

} // namespace quillary
