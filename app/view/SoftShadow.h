#pragma once

#include <QColor>
#include <QImage>

namespace quillary {

/// Gaussian shadows. All lengths are device pixels; the standard deviation is half the radius.
namespace SoftShadow {

/// How far a shadow reaches beyond what casts it: nothing of it is left there.
[[nodiscard]] int reach(double radius);

/// The opacity channel of a picture, blurred, in that colour. What is near the picture's rim must be clear:
/// nothing is drawn beyond it.
[[nodiscard]] QImage cast(const QImage& alpha, double radius, const QColor& colour);

} // namespace SoftShadow

} // namespace quillary
