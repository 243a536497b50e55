#pragma once

#include "app/view/Appearance.h"
#include "app/view/DockScene.h"

#include <QFont>

class QPainter;

namespace quillary {

class IconSprites;
class Plates;

/// The font of hover labels: the system's, 12 points of the screen, medium weight.
[[nodiscard]] QFont labelFont();

/// Draws scenes on any paint device, in points.
class DockPainter {
public:
    /// Sprites and plates must outlive the painter.
    DockPainter(QPainter& painter, const Appearance& appearance, IconSprites& sprites, Plates& plates);

    void draw(const DockScene& scene);

private:
    void drawBackground(const DockScene::Background& background);
    void drawSeparator(const DockScene::Separator& separator);
    void drawIcon(const DockScene::Icon& icon);
    void drawDot(const DockScene::Dot& dot);
    void drawLabel(const DockScene::Label& label);
    void drawHint(const DockScene::Hint& hint);
    [[nodiscard]] bool opaque() const;
    [[nodiscard]] QRectF snapped(const QRectF& rect) const;

    QPainter& painter;
    const Appearance& appearance;
    IconSprites& sprites;
    Plates& plates;
    double ratio;
};

} // namespace quillary
