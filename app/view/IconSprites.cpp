#include "app/view/IconSprites.h"

#include "app/view/IconCache.h"

#include <QPainter>

#include <cmath>

namespace quillary {

namespace {

// Half a device pixel more than the resting size is still drawn as a copy of it.
constexpr double exactFit = 0.5;

} // namespace

IconSprites::IconSprites(std::shared_ptr<IconCache> cache) : icons(std::move(cache)) {}

void IconSprites::setSizes(int resting, int largest) {
    if (resting != restingSize || largest != largestSize) {
        restingSize = resting;
        largestSize = largest;
        sprites.clear();
    }
}

const QImage& IconSprites::sprite(const std::string& path, double drawnSize) {
    Pair& pair = sprites[path];
    const bool fits = std::abs(drawnSize - restingSize) < exactFit;
    QImage& wanted = fits ? pair.resting : pair.largest;
    if (wanted.isNull()) {
        wanted = render(path, fits ? restingSize : largestSize);
    }
    return wanted;
}

QImage IconSprites::render(const std::string& path, int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QPixmap best = icons->icon(path).pixmap(QSize(size, size), 1.0);
    if (best.isNull()) {
        return image;
    }
    // A theme without this size gives a smaller picture or one that is not square: fit it, centred.
    const QSizeF fitted = QSizeF(best.size()).scaled(image.size(), Qt::KeepAspectRatio);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QPointF corner((size - fitted.width()) / 2, (size - fitted.height()) / 2);
    painter.drawPixmap(QRectF(corner, fitted), best, QRectF(best.rect()));
    return image;
}

} // namespace quillary
