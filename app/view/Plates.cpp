#include "app/view/Plates.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace quillary {

namespace {

// Depths change with the icon size and the label's text only; more than a few are never in use.
constexpr std::size_t cacheLimit = 32;

// Length of the middle that is repeated, device pixels.
constexpr int tile = 64;

// The standard deviation of a shadow is half its radius; beyond twice the radius nothing of it is left.
constexpr int reachOf(int radius) {
    return 2 * radius;
}

std::vector<double> gaussian(int radius) {
    const double sigma = radius / 2.0;
    std::vector<double> kernel;
    double sum = 0;
    for (int i = -reachOf(radius); i <= reachOf(radius); ++i) {
        kernel.push_back(std::exp(-(i * i) / (2 * sigma * sigma)));
        sum += kernel.back();
    }
    for (double& weight : kernel) {
        weight /= sum;
    }
    return kernel;
}

/// Blurs the rows and turns the picture over its diagonal, so that a second pass blurs the columns and turns
/// it back.
QImage blurredAndTransposed(const QImage& source, const std::vector<double>& kernel) {
    QImage result(source.height(), source.width(), QImage::Format_Alpha8);
    const int reach = static_cast<int>(kernel.size() / 2);
    const double* middle = kernel.data() + reach;
    for (int y = 0; y < source.height(); ++y) {
        const uchar* row = source.constScanLine(y);
        for (int x = 0; x < source.width(); ++x) {
            const int first = std::max(-reach, -x);
            const int last = std::min(reach, source.width() - 1 - x);
            double value = 0;
            for (int i = first; i <= last; ++i) {
                value += middle[i] * row[x + i];
            }
            result.scanLine(x)[y] = static_cast<uchar>(std::lround(value));
        }
    }
    return result;
}

QImage shadowOf(const QSize& canvas, const QRectF& shape, double corner, int radius, QRgb color) {
    QImage alpha(canvas, QImage::Format_Alpha8);
    alpha.fill(0);
    QPainter painter(&alpha);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(shape, corner, corner);
    painter.end();
    const auto kernel = gaussian(radius);
    alpha = blurredAndTransposed(blurredAndTransposed(alpha, kernel), kernel);
    QImage tinted(canvas, QImage::Format_ARGB32_Premultiplied);
    tinted.fill(QColor::fromRgba(color));
    QPainter tint(&tinted);
    tint.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    tint.drawImage(0, 0, alpha);
    return tinted;
}

// How far a plate's picture reaches beyond the plate.
int marginOf(int radius, int offsetX, int offsetY) {
    return radius == 0 ? 0 : reachOf(radius) + std::max(std::abs(offsetX), std::abs(offsetY));
}

int pixels(double points, double ratio) {
    return static_cast<int>(std::lround(points * ratio));
}

} // namespace

const QImage& Plates::rendered(const Key& key) {
    const auto known = std::ranges::find(images, key, &std::pair<Key, QImage>::first);
    if (known != images.end()) {
        return known->second;
    }
    if (images.size() >= cacheLimit) {
        images.clear();
    }
    const int margin = marginOf(key.radius, key.offsetX, key.offsetY);
    const QRectF plate(margin, margin, key.width, key.height);
    QImage image(key.width + 2 * margin, key.height + 2 * margin, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (key.radius > 0) {
        image = shadowOf(image.size(), plate.translated(key.offsetX, key.offsetY), key.corner, key.radius,
                         key.shadow);
    }
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(plate, key.corner, key.corner);
    // Added, not laid over: at the smoothed rim shadow and fill share a pixel.
    painter.setCompositionMode(QPainter::CompositionMode_Plus);
    painter.setBrush(QColor::fromRgba(key.fill));
    painter.drawRoundedRect(plate, key.corner, key.corner);
    if (key.border > 0) {
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        const double inset = key.border / 2.0;
        const double corner = std::max(0.0, key.corner - inset);
        painter.setPen(QPen(QColor::fromRgba(key.borderColor), key.border));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(plate.adjusted(inset, inset, -inset, -inset), corner, corner);
    }
    painter.end();
    return images.emplace_back(key, std::move(image)).second;
}

void Plates::draw(QPainter& painter, const QRectF& plate, const Look& look) {
    const double ratio = painter.device()->devicePixelRatioF();
    const QRect target(QPoint(pixels(plate.left(), ratio), pixels(plate.top(), ratio)),
                       QPoint(pixels(plate.right(), ratio) - 1, pixels(plate.bottom(), ratio) - 1));
    if (target.isEmpty()) {
        return;
    }
    const bool lying = target.width() >= target.height();
    const int length = lying ? target.width() : target.height();
    Key key{.width = target.width(),
            .height = target.height(),
            .corner = pixels(look.cornerRadius, ratio),
            .radius = pixels(look.shadowRadius, ratio),
            .offsetX = pixels(look.shadowOffset.x(), ratio),
            .offsetY = pixels(look.shadowOffset.y(), ratio),
            .border = pixels(look.borderWidth, ratio),
            .fill = look.fill.rgba(),
            .borderColor = look.border.rgba(),
            .shadow = look.shadow.rgba()};
    const int margin = marginOf(key.radius, key.offsetX, key.offsetY);
    // Between the curves and the blur of both ends every column is the same: a tile of them is enough.
    const int end = key.corner + margin;
    const bool tiled = length > 2 * end + tile;
    if (tiled) {
        (lying ? key.width : key.height) = 2 * end + tile;
    }
    const QImage& image = rendered(key);
    const QPoint corner = target.topLeft() - QPoint(margin, margin);
    const int full = length + 2 * margin;

    painter.save();
    painter.scale(1 / ratio, 1 / ratio);
    // Copies of whole pixels, which the raster engine does several times as fast as stretching.
    const auto copy = [&](int to, int from, int count) {
        const QPoint at = corner + (lying ? QPoint(to, 0) : QPoint(0, to));
        const QRect source =
            lying ? QRect(from, 0, count, image.height()) : QRect(0, from, image.width(), count);
        painter.drawImage(QRect(at, source.size()), image, source);
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
    painter.restore();
}

} // namespace quillary
