#include "app/view/IconSprites.h"

#include "app/DockGeometry.h"
#include "app/view/Appearance.h"
#include "app/view/IconCache.h"
#include "app/view/PixelFit.h"
#include "app/view/SoftShadow.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillary {

namespace {

QColor shadowColour(const DockScene::Shadow& shadow) {
    return QColor::fromRgbF(0, 0, 0, static_cast<float>(shadow.opacity));
}

QImage canvas(int side) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

IconSprites::Look IconSprites::Look::of(const DockGeometry& geometry, const Appearance& appearance,
                                        double ratio) {
    const bool blends = appearance.blending != Blending::opaque;
    QColor border(Qt::white);
    border.setAlphaF(static_cast<float>(DockScene::discBorder));
    return {.resting = static_cast<int>(std::lround(geometry.size * ratio)),
            .largest = static_cast<int>(std::lround(geometry.size * (1 + geometry.amount) * ratio)),
            .ratio = ratio,
            .shadow = blends ? DockScene::iconShadow(geometry.style) : DockScene::Shadow{},
            .discShadow = blends ? DockScene::discShadow : DockScene::Shadow{},
            .discShare = DockScene::discShare,
            .discFill = appearance.fill(Material::ultraThin),
            .discBorder = border};
}

IconSprites::IconSprites(std::shared_ptr<IconCache> icons) : m_icons(std::move(icons)) {}

void IconSprites::setLook(const Look& look) {
    if (look != m_look) {
        m_look = look;
        m_sprites.clear();
        m_discs = {};
    }
}

bool IconSprites::fits(double size) const {
    return areSameSize(size, m_look.resting);
}

const IconSprites::Sprite& IconSprites::icon(const std::string& path, double drawnSize) {
    Pair& pair = m_sprites[path];
    const bool resting = fits(drawnSize);
    Sprite& sprite = resting ? pair.resting : pair.largest;
    if (sprite.image.isNull()) {
        sprite = renderIcon(path, resting ? m_look.resting : m_look.largest);
    }
    return sprite;
}

const IconSprites::Sprite& IconSprites::disc(double iconSize) {
    const bool resting = fits(iconSize);
    Sprite& sprite = resting ? m_discs.resting : m_discs.largest;
    if (sprite.image.isNull()) {
        sprite = renderDisc(resting ? m_look.resting : m_look.largest);
    }
    return sprite;
}

int IconSprites::marginOf(const DockScene::Shadow& shadow) const {
    // Scaled sprites are drawn without antialiased edges, so their outermost pixels must be clear.
    if (shadow.opacity <= 0) {
        return 1;
    }
    const double offset = std::max(std::abs(shadow.offset.x()), std::abs(shadow.offset.y()));
    return SoftShadow::reach(shadow.radius * m_look.ratio) +
           static_cast<int>(std::ceil(offset * m_look.ratio)) + 1;
}

QImage IconSprites::picture(const std::string& path, int size) {
    QImage image = canvas(size);
    const QPixmap best = m_icons->icon(path).pixmap(QSize(size, size), 1.0);
    if (best.isNull()) {
        return image;
    }
    // A theme may only have a smaller picture or one that is not square: it is scaled to fit and centred.
    const QSizeF fitted = QSizeF(best.size()).scaled(image.size(), Qt::KeepAspectRatio);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QPointF corner((size - fitted.width()) / 2, (size - fitted.height()) / 2);
    painter.drawPixmap(QRectF(corner, fitted), best, QRectF(best.rect()));
    return image;
}

IconSprites::Sprite IconSprites::renderIcon(const std::string& path, int size) {
    const int margin = marginOf(m_look.shadow);
    QImage image = canvas(size + 2 * margin);
    const QImage inner = picture(path, size);
    QPainter painter(&image);
    if (m_look.shadow.opacity > 0) {
        QImage cover = canvas(image.width());
        QPainter(&cover).drawImage(margin, margin, inner);
        painter.drawImage(
            (m_look.shadow.offset * m_look.ratio).toPoint(),
            SoftShadow::cast(cover, m_look.shadow.radius * m_look.ratio, shadowColour(m_look.shadow)));
    }
    painter.drawImage(margin, margin, inner);
    painter.end();
    return {image, margin, size};
}

IconSprites::Sprite IconSprites::renderDisc(int iconSize) const {
    const int margin = marginOf(m_look.discShadow);
    // As odd or even as the icon, so that both have the same centre.
    const int grown = static_cast<int>(std::lround((m_look.discShare - 1) * iconSize / 2));
    const int side = iconSize + 2 * grown;
    const QRectF circle(margin, margin, side, side);
    QImage image = canvas(side + 2 * margin);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_look.discShadow.opacity > 0) {
        QImage cover = canvas(image.width());
        QPainter covering(&cover);
        covering.setRenderHint(QPainter::Antialiasing);
        covering.setPen(Qt::NoPen);
        covering.setBrush(Qt::black);
        covering.drawEllipse(circle);
        covering.end();
        painter.drawImage((m_look.discShadow.offset * m_look.ratio).toPoint(),
                          SoftShadow::cast(cover, m_look.discShadow.radius * m_look.ratio,
                                           shadowColour(m_look.discShadow)));
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::black);
        painter.drawEllipse(circle);
        painter.setCompositionMode(QPainter::CompositionMode_Plus);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_look.discFill);
    painter.drawEllipse(circle);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    const double line = m_look.ratio;
    painter.setPen(QPen(m_look.discBorder, line));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(circle.adjusted(line / 2, line / 2, -line / 2, -line / 2));
    painter.end();
    return {image, margin, side};
}

std::size_t IconSprites::bytes() const {
    const auto of = [](const Pair& pair) {
        return static_cast<std::size_t>(pair.resting.image.sizeInBytes() + pair.largest.image.sizeInBytes());
    };
    std::size_t sum = of(m_discs);
    for (const auto& [path, pair] : m_sprites) {
        sum += of(pair);
    }
    return sum;
}

} // namespace quillary
