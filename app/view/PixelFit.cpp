#include "app/view/PixelFit.h"

#include <cmath>

namespace quillary {

namespace {

/// Finer than anybody could see, coarser than the noise of adding what was just subtracted.
constexpr double fineness = 1024;

class Fitting {
public:
    Fitting(const DockScene& scene, const PixelGrid& grid)
        : shift(grid.origin + scene.offset),
          ratio(grid.ratio),
          horizontal(isHorizontal(scene.edge)),
          resting(static_cast<double>(std::lround(scene.iconSize * grid.ratio))) {}

    [[nodiscard]] QRectF rect(const QRectF& part) const {
        return {QPointF(side(part.left(), shift.x()), side(part.top(), shift.y())),
                QPointF(side(part.right(), shift.x()), side(part.bottom(), shift.y()))};
    }

    void fit(DockScene::Icon& icon) const {
        if (icon.pressed > 0 || !areSameSize(icon.rect.width() * ratio, resting)) {
            return;
        }
        const QPointF before = icon.rect.center();
        const QPointF center(middle(before.x(), shift.x()), middle(before.y(), shift.y()));
        const double size = resting / ratio;
        icon.rect = QRectF(center - QPointF(size / 2, size / 2), QSizeF(size, size));
        if (icon.disc) {
            *icon.disc = {.center = center, .diameter = size * DockScene::discShare};
        }
        if (icon.dot) {
            (horizontal ? icon.dot->center.rx() : icon.dot->center.ry()) =
                horizontal ? center.x() : center.y();
        }
        if (icon.pill) {
            const QPointF moved = icon.pill->rect.topLeft() + center - before;
            icon.pill->rect.moveTopLeft(
                {std::round(moved.x() * fineness) / fineness, std::round(moved.y() * fineness) / fineness});
        }
    }

private:
    [[nodiscard]] double side(double value, double offset) const {
        return onWholePixel(value + offset, ratio) - offset;
    }
    // So that the sides of a resting icon are on whole pixels.
    [[nodiscard]] double middle(double value, double offset) const {
        return (std::round((value + offset) * ratio - resting / 2) + resting / 2) / ratio - offset;
    }

    QPointF shift;
    double ratio;
    bool horizontal;
    double resting;
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
