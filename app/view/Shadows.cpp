#include "app/view/Shadows.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <vector>

namespace quillary {

namespace {

// Depths change with the icon size and the label's text only; more than a few are never in use.
constexpr std::size_t cacheLimit = 32;

/// A normalised gaussian whose standard deviation is half the blur radius, as shadows are specified in the
/// field.
std::vector<double> gaussian(int radius) {
    const double sigma = radius / 2.0;
    std::vector<double> kernel;
    double sum = 0;
    for (int i = -radius * 2; i <= radius * 2; ++i) {
        kernel.push_back(std::exp(-(i * i) / (2 * sigma * sigma)));
        sum += kernel.back();
    }
    for (double& weight : kernel) {
        weight /= sum;
    }
    return kernel;
}

QImage blurredRows(const QImage& source, const std::vector<double>& kernel) {
    // Transposed, so that a second pass blurs the other axis and turns it back.
    QImage result(source.height(), source.width(), QImage::Format_Alpha8);
    const int reach = static_cast<int>(kernel.size() / 2);
    for (int y = 0; y < source.height(); ++y) {
        const uchar* row = source.constScanLine(y);
        for (int x = 0; x < source.width(); ++x) {
            double value = 0;
            for (int i = -reach; i <= reach; ++i) {
                if (x + i >= 0 && x + i < source.width()) {
                    value += kernel[static_cast<std::size_t>(i + reach)] * row[x + i];
                }
            }
            result.scanLine(x)[y] = static_cast<uchar>(std::lround(value));
        }
    }
    return result;
}

} // namespace

const QImage& Shadows::rendered(const Key& key) {
    if (const auto known = images.find(key); known != images.end()) {
        return known->second;
    }
    if (images.size() >= cacheLimit) {
        images.clear();
    }
    const int margin = 2 * key.radius;
    QImage shape(key.width + 2 * margin, key.height + 2 * margin, QImage::Format_Alpha8);
    shape.fill(0);
    QPainter painter(&shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(QRectF(margin, margin, key.width, key.height), key.corner, key.corner);
    painter.end();
    const auto kernel = gaussian(key.radius);
    const QImage alpha = blurredRows(blurredRows(shape, kernel), kernel);
    QImage tinted(alpha.size(), QImage::Format_ARGB32_Premultiplied);
    tinted.fill(QColor::fromRgba(key.color));
    QPainter tint(&tinted);
    tint.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    tint.drawImage(0, 0, alpha);
    tint.end();
    return images.emplace(key, std::move(tinted)).first->second;
}

void Shadows::draw(QPainter& painter, const QRectF& shape, const Look& look) {
    const double ratio = painter.device()->devicePixelRatioF();
    const int radius = std::max(1, static_cast<int>(std::lround(look.radius * ratio)));
    const int corner = static_cast<int>(std::lround(look.cornerRadius * ratio));
    const int margin = 2 * radius;
    const QRect pixels = QRectF(shape.topLeft() * ratio, shape.size() * ratio).toRect();
    const bool lying = pixels.width() >= pixels.height();
    const int length = lying ? pixels.width() : pixels.height();
    // Beyond both ends' curves and blur every column is the same: one is enough.
    const int shortest = std::min(length, 2 * (corner + 2 * margin) + 1);
    const QImage& image = rendered({lying ? shortest : pixels.width(), lying ? pixels.height() : shortest,
                                    corner, radius, look.color.rgba()});

    painter.save();
    const QRectF whole = QRectF(pixels).adjusted(-margin, -margin, margin, margin);
    QPainterPath outside;
    outside.addRect(whole);
    QPainterPath inside;
    inside.addRoundedRect(QRectF(pixels).translated(-look.offset * ratio), corner, corner);
    painter.scale(1 / ratio, 1 / ratio);
    painter.translate(look.offset * ratio);
    painter.setClipPath(outside.subtracted(inside), Qt::IntersectClip);
    const int end = (shortest + 2 * margin) / 2;
    const int full = length + 2 * margin;
    const int targets[] = {0, end, full - end, full};
    const int sources[] = {0, end, shortest + 2 * margin - end, shortest + 2 * margin};
    for (int piece = 0; piece < 3; ++piece) {
        const QRect along(targets[piece], 0, targets[piece + 1] - targets[piece], 0);
        const int from = sources[piece];
        const int width = sources[piece + 1] - from;
        if (along.width() <= 0 || width <= 0) {
            continue;
        }
        const QRectF target =
            lying ? QRectF(whole.left() + along.left(), whole.top(), along.width(), whole.height())
                  : QRectF(whole.left(), whole.top() + along.left(), whole.width(), along.width());
        const QRect source =
            lying ? QRect(from, 0, width, image.height()) : QRect(0, from, image.width(), width);
        painter.drawImage(target, image, source);
    }
    painter.restore();
}

} // namespace quillary
