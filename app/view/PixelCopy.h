#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QRectF>

class QPainter;

namespace quillary {

/// Draws pictures with a painter whose coordinates are device pixels.
///
/// Both work in bands: the toolkit draws pictures of 96 rows and more on threads, and for pictures of a
/// dock's size starting these costs many times the painting.
namespace PixelCopy {

/// Copies a part of a picture, pixel by pixel.
void copy(QPainter& painter, QPoint at, const QImage& picture, const QRect& part);
/// Draws a picture at another size. Its edges are not antialiased, so its outermost pixels should be clear.
void scale(QPainter& painter, const QRectF& target, const QImage& picture);

} // namespace PixelCopy

} // namespace quillary
