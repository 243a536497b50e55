#pragma once

#include "app/view/Appearance.h"
#include "app/view/DockScene.h"
#include "app/view/IconSprites.h"

#include <QFont>

class QPainter;

namespace quillary {

class LabelText;
class Plates;

/// Draws scenes on any paint device, in points.
class DockPainter {
public:
    /// Sprites, plates and the label's text must outlive the painter.
    DockPainter(QPainter& painter, const Appearance& appearance, IconSprites& sprites, Plates& plates,
                LabelText& labelText);

    /// Draws the scene with the origin of its coordinates at `origin` (points of the device).
    void draw(const DockScene& scene, QPointF origin = {});

private:
    void drawFaded(const DockScene& scene, QPointF origin);
    /// Draws the scene whatever its opacity.
    void drawParts(const DockScene& scene, QPointF origin);
    /// The part of the device that may be drawn on.
    [[nodiscard]] QRectF seen() const;
    void drawBackground(const DockScene::Background& background, DockEdge edge);
    void drawSeparator(const DockScene::Separator& separator);
    void drawIcon(const DockScene::Icon& icon);
    void drawImage(const DockScene::Icon& icon);
    void drawHighlight(const DockScene::Icon& icon);
    void drawSprite(const IconSprites::Sprite& sprite, QPointF center, double side);
    void drawDot(const DockScene::Dot& dot);
    void drawPill(const DockScene::Pill& pill);
    void drawLabel(const DockScene::Label& label);
    void drawHint(const DockScene::Hint& hint);
    void drawHintHalo(const QString& text, const QFont& font, const QRectF& room);
    [[nodiscard]] bool opaque() const;
    [[nodiscard]] QColor colour(const DockScene::Ink& ink) const;
    /// The part on the device, its sides moved to whole device pixels.
    [[nodiscard]] QRectF snapped(const QRectF& part) const;

    QPainter& m_painter;
    const Appearance& m_appearance;
    IconSprites& m_sprites;
    Plates& m_plates;
    LabelText& m_labelText;
    double m_ratio;
    // From the scene's coordinates to the device's. Added to coordinates instead of set on the painter, so
    // that they can be rounded to whole pixels.
    QPointF m_shift;
};

} // namespace quillary
