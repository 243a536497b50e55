#include "app/view/BlurRegion.h"

#include "app/view/ContinuousCorners.h"
#include "app/view/ShelfShape.h"

namespace quillary {

namespace {

// Below this the materials themselves can hardly be seen, and a blur alone would look like a smear.
constexpr double leastOpacity = 0.5;

QRegion covered(const QPainterPath& path) {
    return QRegion(path.toFillPolygon().toPolygon());
}

QPainterPath outline(const DockScene& scene) {
    if (scene.background.outline != DockScene::Background::Outline::shelf) {
        return ContinuousCorners::path(scene.background.rect, scene.background.cornerRadius);
    }
    QPainterPath path;
    path.addPolygon(ShelfShape{scene.edge}.path(scene.background.rect));
    return path;
}

} // namespace

QRegion blurRegion(const DockScene& scene) {
    if (scene.opacity < leastOpacity) {
        return {};
    }
    QRegion region;
    if (scene.background.material != Material::none) {
        region += covered(outline(scene));
    }
    for (const DockScene::Icon& icon : scene.icons) {
        if (icon.disc && icon.presence >= leastOpacity) {
            const double radius = icon.disc->diameter / 2;
            QPainterPath circle;
            circle.addEllipse(icon.disc->center, radius, radius);
            region += covered(circle);
        }
    }
    if (scene.label && scene.label->opacity >= leastOpacity) {
        region += covered(ContinuousCorners::path(scene.label->rect, scene.label->rect.height() / 2));
    }
    return region.translated(scene.offset.toPoint());
}

} // namespace quillary
