#include "app/view/PixelFit.h"

#include <cmath>

namespace quillary {

namespace {

/// Finer than can be seen, coarser than the rounding errors of adding what was just subtracted.
constexpr double fineness = 1024;

class Fitting {
public:
    Fitting(const DockScene& scene, const PixelGrid& grid)
        : m_shift(grid.origin + scene.offset),
          m_ratio(grid.ratio),
          m_horizontal(isHorizontal(scene.edge)),
          m_resting(static_cast<double>(std::lround(scene.iconSize * grid.ratio))) {}

    [[nodiscard]] QRectF rect(const QRectF& part) const {
        return {QPointF(side(part.left(), m_shift.x()), side(part.top(), m_shift.y())),
                QPointF(side(part.right(), m_shift.x()), side(part.bottom(), m_shift.y()))};
    }

    void fit(DockScene::Icon& icon) const {
        if (icon.pressed > 0 || !areSameSize(icon.rect.width() * m_ratio, m_resting)) {
            return;
        }
        const QPointF before = icon.rect.center();
        const QPointF center(middle(before.x(), m_shift.x()), middle(before.y(), m_shift.y()));
        const double size = m_resting / m_ratio;
        icon.rect = QRectF(center - QPointF(size / 2, size / 2), QSizeF(size, size));
        if (icon.disc) {
            *icon.disc = {.center = center, .diameter = size * DockScene::discShare};
        }
        if (icon.dot) {
            (m_horizontal ? icon.dot->center.rx() : icon.dot->center.ry()) =
                m_horizontal ? center.x() : center.y();
        }
        if (icon.pill) {
            const QPointF moved = icon.pill->rect.topLeft() + center - before;
            icon.pill->rect.moveTopLeft(
                {std::round(moved.x() * fineness) / fineness, std::round(moved.y() * fineness) / fineness});
        }
    }

private:
    [[nodiscard]] double side(double value, double offset) const {
        return onWholePixel(value + offset, m_ratio) - offset;
    }
    // So that the sides of a resting icon are on whole pixels.
    [[nodiscard]] double middle(double value, double offset) const {
        return (std::round((value + offset) * m_ratio - m_resting / 2) + m_resting / 2) / m_ratio - offset;
    }

    QPointF m_shift;
    double m_ratio;
    bool m_horizontal;
    double m_resting;
};

} // namespace

double onWholePixel(double place, double ratio) {
    return std::round(place * ratio) / ratio;
}

bool areSameSize(double one, double other) {
    return std::abs(one - other) < 0.5;
}

DockScene fittedToPixels(DockScene scene, const PixelGrid& grid) {
    const Fitting fitting(scene, grid);
    scene.background.rect = fitting.rect(scene.background.rect);
    for (DockScene::Icon& icon : scene.icons) {
        fitting.fit(icon);
    }
    for (DockScene::Separator& separator : scene.separators) {
        separator.rect = fitting.rect(separator.rect);
    }
    if (scene.label) {
        scene.label->rect = fitting.rect(scene.label->rect);
        scene.label->textRect = fitting.rect(scene.label->textRect);
    }
    return scene;
}

} // namespace quillary
