#include "app/view/DockScene.h"

#include "app/DockGeometry.h"
#include "app/view/ContinuousCorners.h"
#include "app/view/ShelfShape.h"

#include <algorithm>
#include <cmath>

namespace quillary {

namespace {

// Covers antialiased borders and positions rounded to pixels.
constexpr double softEdge = 1;

QRect around(const QRectF& rect, double bleed) {
    return rect.adjusted(-bleed, -bleed, bleed, bleed).toAlignedRect();
}

// How far a shadow reaches beyond what casts it: beyond twice its radius nothing of it is left.
double reachOf(const DockScene::Shadow& shadow) {
    return 2 * shadow.radius + std::max(std::abs(shadow.offset.x()), std::abs(shadow.offset.y())) + softEdge;
}

double bleedOf(const DockScene::Background& part) {
    return std::max(reachOf(part.shadow), part.borderWidth + softEdge);
}

QRect extent(const DockScene::Background& part) {
    return around(part.rect, bleedOf(part));
}

QRect extent(const DockScene::Separator& part) {
    return around(part.rect, softEdge);
}

QRect extent(const DockScene::Label& part) {
    return around(part.rect, reachOf(DockScene::labelShadow));
}

QRect extent(const DockScene::Icon& part) {
    return DockScene::extentOf(part);
}

template<typename Part>
void addChange(QRegion& region, const Part& before, const Part& after) {
    if (before != after) {
        region += extent(before);
        region += extent(after);
    }
}

template<typename Part>
void addChanges(QRegion& region, const std::vector<Part>& before, const std::vector<Part>& after) {
    const auto common = std::min(before.size(), after.size());
    for (std::size_t i = 0; i < common; ++i) {
        addChange(region, before[i], after[i]);
    }
    for (const auto* rest : {&before, &after}) {
        for (auto i = common; i < rest->size(); ++i) {
            region += extent((*rest)[i]);
        }
    }
}

// Where a background only changed its length, its ends with their corners are damaged, and what lies between
// them is not.
void addBackground(QRegion& region, const DockScene::Background& before, const DockScene::Background& after,
                   bool horizontal) {
    const bool sameDepth =
        horizontal ? before.rect.top() == after.rect.top() && before.rect.bottom() == after.rect.bottom()
                   : before.rect.left() == after.rect.left() && before.rect.right() == after.rect.right();
    DockScene::Background resized = before;
    resized.rect = after.rect;
    if (resized != after || !sameDepth) {
        addChange(region, before, after);
        return;
    }
    if (before == after) {
        return;
    }
    const double bleed = bleedOf(after);
    const double end = after.outline == DockScene::Background::Outline::shelf
                           ? ShelfShape::slant(horizontal ? after.rect.height() : after.rect.width())
                           : after.cornerRadius * ContinuousCorners::reach;
    const double reach = bleed + end;
    const QRectF inner = before.rect & after.rect;
    const QRectF kept = horizontal ? inner.adjusted(reach, -bleed, -reach, bleed)
                                   : inner.adjusted(-bleed, reach, bleed, -reach);
    QRegion changed = extent(before);
    changed += extent(after);
    if (kept.isValid()) {
        changed -= kept.toRect();
    }
    region += changed;
}

} // namespace

const DockScene::Icon* DockScene::iconAt(QPointF point, Reach reach) const {
    const bool horizontal = isHorizontal(edge);
    const auto found = std::ranges::find_if(icons, [&](const Icon& icon) {
        const QPointF center = icon.rect.center();
        return reach == Reach::square ? icon.rect.contains(point)
               : horizontal           ? DockGeometry::isOnIcon(point.x(), center.x(), icon.rect.width())
                                      : DockGeometry::isOnIcon(point.y(), center.y(), icon.rect.width());
    });
    return found == icons.end() ? nullptr : &*found;
}

QRect DockScene::extentOf(const Icon& part) {
    QRect whole = around(part.rect, reachOf(part.shadow));
    if (part.disc) {
        const double reach = part.disc->diameter / 2 + reachOf(discShadow);
        whole |= around(QRectF(part.disc->center, QSizeF()), reach);
    }
    if (part.dot) {
        const double reach = part.dot->diameter / 2 + 2 * glowRadius + softEdge;
        whole |= around(QRectF(part.dot->center, QSizeF()), reach);
    }
    if (part.pill) {
        whole |= around(part.pill->rect, softEdge);
    }
    return whole;
}

DockScene::Shadow DockScene::iconShadow(DockStyle style) {
    // Without a background the shadow alone sets the icons off.
    return style == DockStyle::minimal ? Shadow{.opacity = 0.45, .radius = 5, .offset = {0, 1}}
                                       : Shadow{.opacity = 0.15, .radius = 2, .offset = {0, 1}};
}

QRegion DockScene::damage(const DockScene& before, const DockScene& after) {
    if (before == after) {
        return {};
    }
    const QRect whole(QPoint(0, 0), after.panelSize.toSize());
    if (before.panelSize != after.panelSize || before.edge != after.edge || before.style != after.style ||
        before.offset != after.offset || before.opacity != after.opacity || before.hint != after.hint) {
        return whole;
    }
    QRegion region;
    addBackground(region, before.background, after.background, isHorizontal(after.edge));
    addChanges(region, before.icons, after.icons);
    addChanges(region, before.separators, after.separators);
    if (before.label != after.label) {
        for (const auto* label : {&before.label, &after.label}) {
            if (*label) {
                region += extent(**label);
            }
        }
    }
    return region & whole;
}

} // namespace quillary
