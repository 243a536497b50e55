#include "app/view/PixelCopy.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillary {

namespace {

constexpr int bandHeight = 64;
/// From here on the toolkit uses threads.
constexpr int threadedHeight = 96;

} // namespace

void PixelCopy::copy(QPainter& painter, QPoint at, const QImage& picture, const QRect& part) {
    const int band = part.height() < threadedHeight ? part.height() : bandHeight;
    for (int y = 0; y < part.height(); y += band) {
        const QRect source(part.x(), part.y() + y, part.width(), std::min(band, part.height() - y));
        painter.drawImage(at + QPoint(0, y), picture, source);
    }
}

void PixelCopy::scale(QPainter& painter, const QRectF& target, const QImage& picture) {
    const bool smoothed = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (target.height() < threadedHeight - 1) {
        painter.drawImage(target, picture);
    } else {
        const QRect pixels = target.toAlignedRect();
        for (int y = pixels.top(); y <= pixels.bottom(); y += bandHeight) {
            painter.save();
            painter.setClipRect(QRect(pixels.left(), y, pixels.width(), bandHeight), Qt::IntersectClip);
            painter.drawImage(target, picture);
            painter.restore();
        }
    }
    painter.setRenderHint(QPainter::Antialiasing, smoothed);
}

} // namespace quillary
