#include "app/view/DockScene.h"

#include <algorithm>

namespace quillary {

namespace {

// What is drawn around a part beyond its rectangle: shadows, glows and smoothed borders.
constexpr double backgroundBleed = 28;
constexpr double iconBleed = 4;
constexpr double dotBleed = 8;
constexpr double labelBleed = 10;

QRect around(const QRectF& rect, double bleed) {
    return rect.adjusted(-bleed, -bleed, bleed, bleed).toAlignedRect();
}

QRect extent(const DockScene::Background& part) {
    return around(part.rect, backgroundBleed);
}

QRect extent(const DockScene::Separator& part) {
    return around(part.rect, 1);
}

QRect extent(const DockScene::Label& part) {
    return around(part.rect, labelBleed);
}

QRect extent(const DockScene::Icon& part) {
    QRect whole = around(part.rect, iconBleed);
    if (part.dot) {
        const double reach = part.dot->diameter / 2 + dotBleed;
        whole |= around(QRectF(part.dot->center, QSizeF()), reach);
    }
    return whole;
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

// Both ends of a background that only changed its length keep their corners' reach; what lies between them
// stays.
void addBackground(QRegion& region, const DockScene::Background& before, const DockScene::Background& after,
                   bool horizontal) {
    const bool sameDepth =
        horizontal ? before.rect.top() == after.rect.top() && before.rect.bottom() == after.rect.bottom()
                   : before.rect.left() == after.rect.left() && before.rect.right() == after.rect.right();
    if (before.cornerRadius != after.cornerRadius || !sameDepth) {
        addChange(region, before, after);
        return;
    }
    if (before == after) {
        return;
    }
    const double reach = backgroundBleed + before.cornerRadius;
    const QRectF inner = before.rect & after.rect;
    const QRectF kept = horizontal ? inner.adjusted(reach, -backgroundBleed, -reach, backgroundBleed)
                                   : inner.adjusted(-backgroundBleed, reach, backgroundBleed, -reach);
    QRegion changed = extent(before);
    changed += extent(after);
    if (kept.isValid()) {
        changed -= kept.toRect();
    }
    region += changed;
}

} // namespace

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
    return region.translated(after.offset.toPoint()) & whole;
}

} // namespace quillary
