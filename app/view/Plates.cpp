#include "app/view/Plates.h"

#include "app/view/ContinuousCorners.h"
#include "app/view/DevicePixels.h"
#include "app/view/PixelCopy.h"
#include "app/view/ShelfShape.h"
#include "app/view/SoftShadow.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillary {

namespace {

// Depths change with the icon size and the label's text only; no more than a few are in use at a time.
constexpr std::size_t cacheLimit = 32;

// Length of the middle that is repeated, device pixels.
constexpr int tile = 64;

int pixels(double points, double ratio) {
    return static_cast<int>(std::lround(points * ratio));
}

QLinearGradient gloss(const QRectF& plate, DockEdge edge, QRgb far, QRgb near) {
    QLinearGradient gradient;
    switch (edge) {
    case DockEdge::bottom:
        gradient = {plate.topLeft(), plate.bottomLeft()};
        break;
    case DockEdge::top:
        gradient = {plate.bottomLeft(), plate.topLeft()};
        break;
    case DockEdge::left:
        gradient = {plate.topRight(), plate.topLeft()};
        break;
    case DockEdge::right:
        gradient = {plate.topLeft(), plate.topRight()};
        break;
    }
    gradient.setColorAt(0, QColor::fromRgba(far));
    gradient.setColorAt(1, QColor::fromRgba(near));
    return gradient;
}

} // namespace

int Plates::Key::margin() const {
    const int shade =
        radius > 0 ? SoftShadow::reach(radius) + std::max(std::abs(offsetX), std::abs(offsetY)) : 0;
    // A stroke along the outline reaches beyond it, the more at its pointed corners.
    const int stroke = outline == Outline::shelf ? static_cast<int>(std::ceil(2 * border)) : 0;
    return std::max(shade, stroke);
}

QPainterPath Plates::Key::path(const QRectF& plate, double inset) const {
    const QRectF inner = plate.adjusted(inset, inset, -inset, -inset);
    if (outline == Outline::rounded) {
        return ContinuousCorners::path(inner, std::max(0.0, corner - inset));
    }
    QPainterPath trapezoid;
    trapezoid.addPolygon(ShelfShape{edge}.path(inner, corner));
    trapezoid.closeSubpath();
    return trapezoid;
}

QImage Plates::render(const Key& key) {
    const int margin = key.margin();
    const QRectF plate(margin, margin, key.width, key.height);
    const QPainterPath outline = key.path(plate, 0);
    QImage image(key.width + 2 * margin, key.height + 2 * margin, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (key.radius > 0) {
        QImage cover(image.size(), QImage::Format_Alpha8);
        cover.fill(0);
        QPainter covering(&cover);
        covering.setRenderHint(QPainter::Antialiasing);
        covering.fillPath(outline.translated(key.offsetX, key.offsetY), Qt::black);
        covering.end();
        painter.drawImage(0, 0, SoftShadow::cast(cover, key.radius, QColor::fromRgba(key.shadow)));
    }
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(outline, Qt::black);
    // Added, not laid over: at the smoothed rim shadow and fill share a pixel.
    painter.setCompositionMode(QPainter::CompositionMode_Plus);
    painter.fillPath(outline, QColor::fromRgba(key.fill));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (qAlpha(key.glossFar) != 0 || qAlpha(key.glossNear) != 0) {
        painter.fillPath(outline, gloss(plate, key.edge, key.glossFar, key.glossNear));
    }
    if (key.border > 0) {
        const double inset = key.outline == Outline::shelf ? 0 : key.border / 2;
        QPen pen(QColor::fromRgba(key.borderColor), key.border);
        pen.setJoinStyle(Qt::MiterJoin);
        painter.strokePath(key.path(plate, inset), pen);
    }
    return image;
}

const QImage& Plates::rendered(const Key& key) {
    const auto known = std::ranges::find(m_images, key, &std::pair<Key, QImage>::first);
    if (known != m_images.end()) {
        return known->second;
    }
    if (m_images.size() >= cacheLimit) {
        m_images.clear();
    }
    return m_images.emplace_back(key, render(key)).second;
}

void Plates::draw(QPainter& painter, const QRectF& plate, const Look& look) {
    const double ratio = painter.device()->devicePixelRatioF();
    const QRect target(QPoint(pixels(plate.left(), ratio), pixels(plate.top(), ratio)),
                       QPoint(pixels(plate.right(), ratio) - 1, pixels(plate.bottom(), ratio) - 1));
    if (target.isEmpty()) {
        return;
    }
    const bool lying = isHorizontal(look.edge);
    const int length = lying ? target.width() : target.height();
    const int depth = lying ? target.height() : target.width();
    Key key{.outline = look.outline,
            .edge = look.edge,
            .width = target.width(),
            .height = target.height(),
            .corner = ratio *
                      (look.outline == Outline::shelf ? ShelfShape::slant(depth / ratio) : look.cornerRadius),
            .radius = look.shadowRadius * ratio,
            .border = look.borderWidth * ratio,
            .offsetX = pixels(look.shadowOffset.x(), ratio),
            .offsetY = pixels(look.shadowOffset.y(), ratio),
            .fill = look.fill.rgba(),
            .glossFar = look.glossFar.rgba(),
            .glossNear = look.glossNear.rgba(),
            .borderColor = look.border.rgba(),
            .shadow = look.shadow.rgba()};
    const int margin = key.margin();
    // Between the curves and the blur of both ends every column is the same: a tile of them is enough.
    const double shaped = look.outline == Outline::shelf ? key.corner : key.corner * ContinuousCorners::reach;
    const int end = static_cast<int>(std::ceil(shaped)) + margin;
    const bool tiled = length > 2 * end + tile;
    if (tiled) {
        (lying ? key.width : key.height) = 2 * end + tile;
    }
    const QImage& image = rendered(key);
    const QPoint corner = target.topLeft() - QPoint(margin, margin);
    const int full = length + 2 * margin;

    const DevicePixels pixelCoordinates(painter, ratio);
    // Copies of whole pixels, which the raster engine does several times as fast as stretching.
    const auto copy = [&](int to, int from, int count) {
        const QPoint at = corner + (lying ? QPoint(to, 0) : QPoint(0, to));
        const QRect source =
            lying ? QRect(from, 0, count, image.height()) : QRect(0, from, image.width(), count);
        PixelCopy::copy(painter, at, image, source);
    };
    if (tiled) {
        const int side = end + margin;
        copy(0, 0, side);
        for (int at = side; at < full - side; at += tile) {
            copy(at, side, std::min(tile, full - side - at));
        }
        copy(full - side, side + tile, side);
    } else {
        copy(0, 0, full);
    }
}

} // namespace quillary
