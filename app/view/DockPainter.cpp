#include "app/view/DockPainter.h"

#include "app/view/IconSprites.h"
#include "app/view/Plates.h"

#include <QFontDatabase>
#include <QPainter>
#include <QRadialGradient>

#include <cmath>

namespace quillary {

namespace {

constexpr int labelPixels = 12;
constexpr int hintPixels = 13;
constexpr double glowRadius = 3;

QColor white(double opacity) {
    return QColor::fromRgbF(1.0F, 1.0F, 1.0F, static_cast<float>(opacity));
}

QColor black(double opacity) {
    return QColor::fromRgbF(0.0F, 0.0F, 0.0F, static_cast<float>(opacity));
}

QColor faded(QColor color, double opacity) {
    color.setAlphaF(color.alphaF() * static_cast<float>(opacity));
    return color;
}

} // namespace

QFont labelFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(labelPixels);
    font.setWeight(QFont::Medium);
    return font;
}

DockPainter::DockPainter(QPainter& target, const Appearance& look, IconSprites& icons, Plates& plateCache)
    : painter(target),
      appearance(look),
      sprites(icons),
      plates(plateCache),
      ratio(target.device()->devicePixelRatioF()) {}

void DockPainter::draw(const DockScene& scene, QPointF origin) {
    if (scene.opacity <= 0) {
        return;
    }
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setOpacity(opaque() ? 1 : scene.opacity);
    shift = origin + scene.offset;
    drawBackground(scene.background);
    for (const DockScene::Separator& separator : scene.separators) {
        drawSeparator(separator);
    }
    for (const DockScene::Icon& icon : scene.icons) {
        drawIcon(icon);
    }
    if (scene.label) {
        drawLabel(*scene.label);
    }
    if (scene.hint) {
        drawHint(*scene.hint);
    }
    painter.restore();
}

void DockPainter::drawBackground(const DockScene::Background& background) {
    plates.draw(painter, background.rect.translated(shift),
                {.cornerRadius = background.cornerRadius,
                 .fill = appearance.background,
                 .border = white(0.22),
                 .borderWidth = 1,
                 .shadow = black(0.28),
                 .shadowRadius = opaque() ? 0.0 : 8.0,
                 .shadowOffset = {0, 2}});
}

void DockPainter::drawSeparator(const DockScene::Separator& separator) {
    painter.fillRect(snapped(separator.rect), faded(appearance.primaryText, separator.opacity));
}

void DockPainter::drawIcon(const DockScene::Icon& icon) {
    const QRectF rect = icon.rect.translated(shift);
    const double pixels = rect.width() * ratio;
    const QImage& sprite = sprites.sprite(icon.path, pixels);
    const double opacity = painter.opacity();
    if (icon.opacity < 1) {
        painter.setOpacity(opacity * icon.opacity);
    }
    if (std::abs(sprite.width() - pixels) < 0.5) {
        // On whole device pixels a sprite of the right size is copied as it is, and stays crisp.
        painter.save();
        painter.scale(1 / ratio, 1 / ratio);
        painter.drawImage((rect.topLeft() * ratio).toPoint(), sprite);
        painter.restore();
    } else {
        painter.drawImage(rect, sprite);
    }
    painter.setOpacity(opacity);
    if (icon.dot) {
        drawDot(*icon.dot);
    }
}

void DockPainter::drawDot(const DockScene::Dot& dot) {
    painter.setPen(Qt::NoPen);
    const QPointF center = dot.center + shift;
    const double radius = dot.diameter / 2;
    if (dot.glow && !opaque()) {
        const double reach = radius + glowRadius * 2;
        QRadialGradient glow(center, reach);
        glow.setColorAt(radius / reach, faded(*dot.glow, 0.7));
        glow.setColorAt((radius + glowRadius) / reach, faded(*dot.glow, 0.2));
        glow.setColorAt(1, Qt::transparent);
        painter.setBrush(glow);
        painter.drawEllipse(center, reach, reach);
    }
    painter.setBrush(dot.color ? *dot.color : faded(appearance.primaryText, dot.opacity));
    painter.drawEllipse(center, radius, radius);
}

void DockPainter::drawLabel(const DockScene::Label& label) {
    const QRectF rect = snapped(label.rect);
    const double opacity = painter.opacity();
    if (!opaque()) {
        painter.setOpacity(opacity * label.opacity);
    }
    plates.draw(painter, rect,
                {.cornerRadius = rect.height() / 2,
                 .fill = appearance.label,
                 .border = white(0.2),
                 .borderWidth = 1,
                 .shadow = black(0.2),
                 .shadowRadius = opaque() ? 0.0 : 3.0,
                 .shadowOffset = {0, 1}});
    painter.setPen(appearance.primaryText);
    painter.setFont(labelFont());
    const QRectF inner = rect.adjusted(10, 0, -10, 0);
    // Rounding of the capsule may take a fraction of a point from the text, which must not cost it its end.
    const QString text =
        QFontMetricsF(painter.font()).elidedText(label.text, Qt::ElideRight, inner.width() + 1);
    painter.drawText(inner.adjusted(-2, 0, 2, 0), Qt::AlignCenter, text);
    painter.setOpacity(opacity);
}

void DockPainter::drawHint(const DockScene::Hint& hint) {
    QFont font = labelFont();
    font.setPixelSize(hintPixels);
    font.setWeight(QFont::Normal);
    painter.setFont(font);
    painter.setPen(appearance.secondaryText);
    const QSizeF room(QFontMetricsF(font).horizontalAdvance(hint.text) + 2, hintPixels * 2);
    painter.drawText(QRectF(hint.center + shift - QPointF(room.width() / 2, room.height() / 2), room),
                     Qt::AlignCenter, hint.text);
}

bool DockPainter::opaque() const {
    return appearance.blending == Appearance::Blending::opaque;
}

QRectF DockPainter::snapped(const QRectF& part) const {
    const QRectF rect = part.translated(shift);
    const auto snap = [this](double value) { return std::round(value * ratio) / ratio; };
    return {QPointF(snap(rect.left()), snap(rect.top())), QPointF(snap(rect.right()), snap(rect.bottom()))};
}

} // namespace quillary
