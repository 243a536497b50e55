#include "app/view/DockPainter.h"

#include "app/view/ContinuousCorners.h"
#include "app/view/DevicePixels.h"
#include "app/view/DockFonts.h"
#include "app/view/LabelText.h"
#include "app/view/PixelCopy.h"
#include "app/view/PixelFit.h"
#include "app/view/Plates.h"
#include "app/view/SoftShadow.h"

#include <QPainter>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace quillary {

namespace {

QColor withOpacity(QColor color, double opacity) {
    color.setAlphaF(color.alphaF() * static_cast<float>(opacity));
    return color;
}

/// The picture with that share of full brightness taken from each of its colours.
QImage darkened(QImage image, double share) {
    const int loss = static_cast<int>(std::lround(share * 255));
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = line[x];
            // The colours are multiplied by their opacity, so what is taken must be too.
            const int taken = loss * qAlpha(pixel) / 255;
            line[x] = qRgba(std::max(0, qRed(pixel) - taken), std::max(0, qGreen(pixel) - taken),
                            std::max(0, qBlue(pixel) - taken), qAlpha(pixel));
        }
    }
    return image;
}

} // namespace

DockPainter::DockPainter(QPainter& painter, const Appearance& appearance, IconSprites& sprites,
                         Plates& plates, LabelText& labelText)
    : m_painter(painter),
      m_appearance(appearance),
      m_sprites(sprites),
      m_plates(plates),
      m_labelText(labelText),
      m_ratio(painter.device()->devicePixelRatioF()) {}

void DockPainter::draw(const DockScene& scene, QPointF origin) {
    if (scene.opacity <= 0) {
        return;
    }
    if (scene.opacity < 1 && !opaque()) {
        drawFaded(scene, origin);
    } else {
        drawParts(scene, origin);
    }
}

// As one layer: were each part faded by itself, those behind would show through those in front.
void DockPainter::drawFaded(const DockScene& scene, QPointF origin) {
    const QRectF area = seen();
    const QRect pixels = QRectF(area.topLeft() * m_ratio, area.size() * m_ratio).toAlignedRect();
    if (pixels.isEmpty()) {
        return;
    }
    QImage layer(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    layer.setDevicePixelRatio(m_ratio);
    layer.fill(Qt::transparent);
    QPainter painter(&layer);
    DockPainter(painter, m_appearance, m_sprites, m_plates, m_labelText)
        .drawParts(scene, origin - QPointF(pixels.topLeft()) / m_ratio);
    painter.end();
    layer.setDevicePixelRatio(1);
    m_painter.save();
    m_painter.setOpacity(scene.opacity);
    {
        const DevicePixels device(m_painter, m_ratio);
        PixelCopy::copy(m_painter, pixels.topLeft(), layer, layer.rect());
    }
    m_painter.restore();
}

QRectF DockPainter::seen() const {
    return m_painter.hasClipping()
               ? m_painter.clipBoundingRect()
               : QRectF(0, 0, m_painter.device()->width() / m_ratio, m_painter.device()->height() / m_ratio);
}

void DockPainter::drawParts(const DockScene& scene, QPointF origin) {
    m_painter.save();
    m_painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    m_shift = origin + scene.offset;
    drawBackground(scene.background, scene.edge);
    for (const DockScene::Separator& separator : scene.separators) {
        drawSeparator(separator);
    }
    // Of a dock longer than its screen, only the icons on the screen are loaded and drawn.
    const QRectF area = seen();
    for (const DockScene::Icon& icon : scene.icons) {
        if (QRectF(DockScene::extentOf(icon)).translated(m_shift).intersects(area)) {
            drawIcon(icon);
        }
    }
    if (scene.label) {
        drawLabel(*scene.label);
    }
    if (scene.hint) {
        drawHint(*scene.hint);
    }
    m_painter.restore();
}

QColor DockPainter::colour(const DockScene::Ink& ink) const {
    using Source = DockScene::Ink::Source;
    switch (ink.source) {
    case Source::white:
        return withOpacity(Qt::white, ink.opacity);
    case Source::black:
        return withOpacity(Qt::black, ink.opacity);
    case Source::primaryText:
        return withOpacity(m_appearance.primaryText, ink.opacity);
    case Source::accent:
        return withOpacity(m_appearance.accent, ink.opacity);
    case Source::amber:
        return QColor::fromRgbF(1.0F, 0.72F, 0.1F, static_cast<float>(ink.opacity));
    case Source::red:
        break;
    }
    return QColor::fromRgbF(1.0F, 0.27F, 0.23F, static_cast<float>(ink.opacity));
}

void DockPainter::drawBackground(const DockScene::Background& background, DockEdge edge) {
    using Source = DockScene::Ink::Source;
    const bool shelf = background.outline == DockScene::Background::Outline::shelf;
    m_plates.draw(m_painter, background.rect.translated(m_shift),
                  {.outline = shelf ? Plates::Outline::shelf : Plates::Outline::rounded,
                   .cornerRadius = background.cornerRadius,
                   .fill = m_appearance.fill(background.material),
                   .glossFar = colour({Source::white, background.farWhite}),
                   .glossNear = colour({Source::white, background.nearWhite}),
                   .edge = edge,
                   .border = colour(background.border),
                   .borderWidth = background.borderWidth,
                   .shadow = colour({Source::black, background.shadow.opacity}),
                   .shadowRadius = opaque() ? 0 : background.shadow.radius,
                   .shadowOffset = background.shadow.offset});
}

void DockPainter::drawSeparator(const DockScene::Separator& separator) {
    m_painter.fillRect(snapped(separator.rect), withOpacity(m_appearance.primaryText, separator.opacity));
}

void DockPainter::drawIcon(const DockScene::Icon& icon) {
    const double opacity = m_painter.opacity();
    m_painter.setOpacity(opacity * icon.presence);
    if (icon.disc) {
        drawSprite(m_sprites.disc(icon.rect.width() * m_ratio), icon.disc->center, icon.disc->diameter);
    }
    drawImage(icon);
    if (icon.highlight > 0) {
        drawHighlight(icon);
    }
    if (icon.dot) {
        drawDot(*icon.dot);
    }
    if (icon.pill) {
        drawPill(*icon.pill);
    }
    m_painter.setOpacity(opacity);
}

void DockPainter::drawImage(const DockScene::Icon& icon) {
    const double opacity = m_painter.opacity();
    m_painter.setOpacity(opacity * icon.opacity);
    const double side = icon.rect.width() * (1 - (1 - DockScene::pressedScale) * icon.pressed);
    const IconSprites::Sprite& sprite = m_sprites.icon(icon.path, side * m_ratio);
    if (icon.pressed > 0) {
        const IconSprites::Sprite dark{darkened(sprite.image, DockScene::pressedDarkening * icon.pressed),
                                       sprite.margin, sprite.side};
        drawSprite(dark, icon.rect.center(), side);
    } else {
        drawSprite(sprite, icon.rect.center(), side);
    }
    m_painter.setOpacity(opacity);
}

void DockPainter::drawSprite(const IconSprites::Sprite& sprite, QPointF center, double side) {
    const double scale = side * m_ratio / sprite.side;
    const QSizeF size = QSizeF(sprite.image.size()) * scale;
    const QRectF target(((center + m_shift) * m_ratio) - QPointF(size.width() / 2, size.height() / 2), size);
    const DevicePixels pixels(m_painter, m_ratio);
    if (areSameSize(sprite.side, side * m_ratio)) {
        // On whole device pixels a sprite of the right size is copied as it is, and stays crisp.
        PixelCopy::copy(m_painter, target.topLeft().toPoint(), sprite.image, sprite.image.rect());
    } else {
        PixelCopy::scale(m_painter, target, sprite.image);
    }
}

void DockPainter::drawHighlight(const DockScene::Icon& icon) {
    const double inset = icon.rect.width() * (1 - DockScene::pressedScale) * icon.pressed / 2;
    const QRectF rect = icon.rect.adjusted(inset, inset, -inset, -inset).translated(m_shift);
    m_painter.fillPath(ContinuousCorners::path(rect, rect.width() * DockScene::highlightCorner),
                       withOpacity(m_appearance.accent, icon.highlight));
}

void DockPainter::drawDot(const DockScene::Dot& dot) {
    const QPointF center = dot.center + m_shift;
    const double radius = dot.diameter / 2;
    m_painter.setPen(Qt::NoPen);
    if (dot.glow.opacity > 0 && !opaque()) {
        // A disc blurred by a gaussian of standard deviation s: its exact height in the middle, falling off
        // as a gaussian that holds as much as the disc.
        const double s = DockScene::glowRadius / 2;
        const double peak = 1 - std::exp(-radius * radius / (2 * s * s));
        const double variance = s * s + radius * radius / 4;
        const double reach = radius + 2 * DockScene::glowRadius;
        QRadialGradient glow(center, reach);
        constexpr int steps = 8;
        for (int i = 0; i < steps; ++i) {
            const double distance = reach * i / steps;
            glow.setColorAt(
                static_cast<double>(i) / steps,
                withOpacity(colour(dot.glow), peak * std::exp(-distance * distance / (2 * variance))));
        }
        glow.setColorAt(1, withOpacity(colour(dot.glow), 0));
        m_painter.setBrush(glow);
        m_painter.drawEllipse(center, reach, reach);
    }
    m_painter.setBrush(colour(dot.ink));
    m_painter.drawEllipse(center, radius, radius);
}

void DockPainter::drawPill(const DockScene::Pill& pill) {
    const QRectF rect = pill.rect.translated(m_shift);
    const double radius = rect.height() / 2;
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(colour({DockScene::Ink::Source::red, 1}));
    m_painter.drawRoundedRect(rect, radius, radius);
    m_painter.setPen(QPen(colour({DockScene::Ink::Source::white, DockScene::pillBorder}), 1));
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
    m_painter.setPen(Qt::white);
    m_painter.setFont(DockFonts::pill());
    const double scale = pill.fontSize / DockFonts::pillSize;
    m_painter.save();
    m_painter.translate(rect.center());
    m_painter.scale(scale, scale);
    m_painter.drawText(QRectF(), Qt::AlignCenter | Qt::TextDontClip, pill.text);
    m_painter.restore();
}

void DockPainter::drawLabel(const DockScene::Label& label) {
    const QRectF rect = snapped(label.rect);
    const double opacity = m_painter.opacity();
    if (!opaque()) {
        m_painter.setOpacity(opacity * label.opacity);
    }
    using Source = DockScene::Ink::Source;
    m_plates.draw(m_painter, rect,
                  {.cornerRadius = rect.height() / 2,
                   .fill = m_appearance.fill(Material::regular),
                   .border = colour({Source::white, DockScene::labelBorder}),
                   .borderWidth = 1,
                   .shadow = colour({Source::black, DockScene::labelShadow.opacity}),
                   .shadowRadius = opaque() ? 0 : DockScene::labelShadow.radius,
                   .shadowOffset = DockScene::labelShadow.offset});
    const QRectF room = snapped(label.textRect).adjusted(-2, 0, 2, 0);
    const QRect pixels = QRectF(room.topLeft() * m_ratio, room.size() * m_ratio).toRect();
    const QImage& text = m_labelText.image({.text = label.text,
                                            .font = DockFonts::label(),
                                            .room = pixels.size(),
                                            .cut = label.cut,
                                            .ink = m_appearance.primaryText,
                                            .ratio = m_ratio});
    {
        const DevicePixels device(m_painter, m_ratio);
        PixelCopy::copy(m_painter, pixels.topLeft(), text, text.rect());
    }
    m_painter.setOpacity(opacity);
}

void DockPainter::drawHint(const DockScene::Hint& hint) {
    const QFont font = DockFonts::hint(hint.text, hint.room.size());
    const QRectF room = snapped(hint.room);
    if (!opaque()) {
        drawHintHalo(hint.text, font, room);
    }
    m_painter.setFont(font);
    m_painter.setPen(m_appearance.secondaryText);
    m_painter.drawText(room, DockFonts::hintLayout, hint.text);
}

// Most of the text stands beside the narrow background of an empty dock, on wallpaper of any colour.
void DockPainter::drawHintHalo(const QString& text, const QFont& font, const QRectF& room) {
    constexpr double radius = 3;
    constexpr int layers = 3;
    const QRectF area = room.adjusted(-2 * radius, -2 * radius, 2 * radius, 2 * radius);
    const QRect pixels = QRectF(area.topLeft() * m_ratio, area.size() * m_ratio).toRect();
    QImage letters(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    letters.setDevicePixelRatio(m_ratio);
    letters.fill(Qt::transparent);
    QPainter painter(&letters);
    painter.setFont(font);
    painter.drawText(room.translated(-area.topLeft()), DockFonts::hintLayout, text);
    painter.end();
    letters.setDevicePixelRatio(1);
    const QColor colour = m_appearance.shade == Shade::dark ? Qt::black : Qt::white;
    const QImage halo = SoftShadow::cast(letters, radius * m_ratio, colour);
    const DevicePixels device(m_painter, m_ratio);
    for (int layer = 0; layer < layers; ++layer) {
        PixelCopy::copy(m_painter, pixels.topLeft(), halo, halo.rect());
    }
}

bool DockPainter::opaque() const {
    return m_appearance.blending == Blending::opaque;
}

QRectF DockPainter::snapped(const QRectF& part) const {
    const QRectF rect = part.translated(m_shift);
    return {QPointF(onWholePixel(rect.left(), m_ratio), onWholePixel(rect.top(), m_ratio)),
            QPointF(onWholePixel(rect.right(), m_ratio), onWholePixel(rect.bottom(), m_ratio))};
}

} // namespace quillary
