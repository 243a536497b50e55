#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QRectF>

class QPainter;

namespace quillary {

/// Pictures laid onto pixels, by a painter whose coordinates are those of the device.
///
/// Both work in bands: what is 96 rows high or higher the toolkit would hand out to threads, and for pictures
/// of a dock's size the handing out costs many times the painting.
namespace PixelCopy {

/// Copies a part of a picture, pixel by pixel.
void copy(QPainter& painter, QPoint at, const QImage& picture, const QRect& part);
/// Draws a picture at another size. Its rim is not smoothed, and should be clear.
void scale(QPainter& painter, const QRectF& target, const QImage& picture);

} // namespace PixelCopy

} // namespace quillary
