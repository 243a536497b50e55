#include "app/view/DockSceneBuilder.h"

#include "app/DockModel.h"
#include "app/MemoryMonitor.h"
#include "app/RunningApps.h"

#include <algorithm>

namespace quillary {

namespace {

// Distances from the screen edge, points.
constexpr double iconGap = DockLayout::dotRoom + DockLayout::edgeGap;
constexpr double dotDepth = 10;
constexpr double hiddenExtra = 8;
constexpr double labelGap = 18;
constexpr double sideLabelGap = 10;

constexpr double labelPadX = 10;
constexpr double labelHeight = 23;
constexpr double sideLabelBox = 180;
constexpr double separatorLength = 0.75;
constexpr double missingOpacity = 0.35;

/// One moment's layout, worked out once for all parts of the scene.
struct Moment {
    std::vector<DockCell> cells;
    DockGeometry geometry;
    std::vector<double> scales;
    DockLayout::Shifted spread;

    Moment(const DockModel& model, const DockSceneState& state)
        : cells(model.cells()),
          geometry(model.geometry(cells)),
          scales(geometry.scales(state.mouseAxis, cells)) {
        for (double& scale : scales) {
            scale = 1 + (scale - 1) * state.magnified;
        }
        spread = geometry.layout(scales);
    }
};

QRectF centred(QPointF center, double width, double height) {
    return {center.x() - width / 2, center.y() - height / 2, width, height};
}

DockScene::Background background(const Moment& moment) {
    const DockGeometry& geometry = moment.geometry;
    const double thickness = geometry.size + DockLayout::dotRoom + DockLayout::farMargin;
    const double length = geometry.restLen + moment.spread.extra;
    const QPointF center = geometry.point(geometry.alongLength() / 2, thickness / 2 + DockLayout::edgeGap);
    const QRectF rect =
        isHorizontal(geometry.edge) ? centred(center, length, thickness) : centred(center, thickness, length);
    return {rect, std::min(thickness * 0.3, 18.0)};
}

DockScene::Separator separator(const DockGeometry& geometry, double along) {
    const QPointF center = geometry.point(along, geometry.size / 2 + iconGap);
    const double length = geometry.size * separatorLength;
    const bool strong = geometry.style == DockStyle::bubbles || geometry.style == DockStyle::minimal;
    return {isHorizontal(geometry.edge) ? centred(center, 1, length) : centred(center, length, 1),
            strong ? 0.35 : 0.22};
}

std::optional<DockScene::Dot> dot(const DockModel& model, const DockGeometry& geometry, double along,
                                  const std::string& path) {
    if (model.running->app(path) == nullptr) {
        return std::nullopt;
    }
    const bool active = model.running->activePath() == path;
    const RamBadge badge = model.showMemory() ? model.memory->badge(path) : RamBadge::none;
    DockScene::Dot result{.center = geometry.point(along, dotDepth)};
    switch (badge) {
    case RamBadge::none:
        result.diameter = active ? 5 : 4;
        result.opacity = active ? 0.95 : 0.6;
        if (active) {
            result.glow = QColor::fromRgbF(1.0F, 1.0F, 1.0F, 0.8F);
        }
        break;
    case RamBadge::heavy:
        result.diameter = 7;
        result.color = QColor::fromRgbF(1.0F, 0.72F, 0.1F);
        result.glow = QColor::fromRgbF(1.0F, 0.72F, 0.1F, 0.9F);
        break;
    case RamBadge::hog:
        result.diameter = 8;
        result.color = QColor::fromRgbF(1.0F, 0.27F, 0.23F);
        result.glow = QColor::fromRgbF(1.0F, 0.27F, 0.23F, 0.9F);
        break;
    }
    return result;
}

DockScene::Label label(const DockGeometry& geometry, double along, double iconSize, const QString& text,
                       const DockSceneState& state) {
    const double width = state.textWidth(text) + 2 * labelPadX;
    const double farSide = iconSize + iconGap;
    if (isHorizontal(geometry.edge)) {
        // Centred on its icon, unless the panel would cut it that has room for it elsewhere.
        const double reach = std::min(width, geometry.alongLength()) / 2;
        const double middle = std::clamp(along, reach, geometry.alongLength() - reach);
        return {text, centred(geometry.point(middle, farSide + labelGap), width, labelHeight),
                state.magnified};
    }
    // The text hugs the side of its box that is nearer to the dock, so it grows away from it.
    const double boxed = std::min(width, sideLabelBox);
    const QPointF center = geometry.point(along, farSide + sideLabelGap + boxed / 2);
    return {text, centred(center, boxed, labelHeight), state.magnified};
}

QPointF hideOffset(const DockGeometry& geometry, double hidden) {
    const double distance = hidden * (geometry.size + DockLayout::depthBase + hiddenExtra);
    switch (geometry.edge) {
    case DockEdge::bottom:
        return {0, distance};
    case DockEdge::left:
        return {-distance, 0};
    case DockEdge::right:
        return {distance, 0};
    case DockEdge::top:
        break;
    }
    return {0, -distance};
}

} // namespace

DockScene buildDockScene(const DockModel& model, const DockSceneState& state) {
    const Moment moment(model, state);
    const DockGeometry& geometry = moment.geometry;
    const auto& centers = moment.spread.centers;
    DockScene scene;
    scene.panelSize = geometry.panelSize();
    scene.edge = geometry.edge;
    scene.style = geometry.style;
    scene.offset = hideOffset(geometry, state.hidden);
    scene.opacity = std::clamp(1 - state.hidden, 0.0, 1.0);
    scene.background = background(moment);
    scene.icons.reserve(moment.cells.size());
    for (std::size_t i = 0; i < moment.cells.size(); ++i) {
        const DockCell& cell = moment.cells[i];
        if (!cell.isItem()) {
            scene.separators.push_back(separator(geometry, centers[i]));
            continue;
        }
        const double size = geometry.size * moment.scales[i];
        scene.icons.push_back({.path = cell.path,
                               .rect = centred(geometry.point(centers[i], size / 2 + iconGap), size, size),
                               .opacity = state.exists(cell.path) ? 1 : missingOpacity,
                               .dot = dot(model, geometry, centers[i], cell.path)});
    }
    if (state.mouseAxis) {
        const auto hit = geometry.hitTest(*state.mouseAxis, moment.cells, centers, moment.scales);
        if (hit) {
            scene.label = label(geometry, centers[*hit], geometry.size * moment.scales[*hit],
                                state.labelText(moment.cells[*hit].path), state);
        }
    }
    if (moment.cells.empty()) {
        const double middle =
            (geometry.size + DockLayout::dotRoom + DockLayout::farMargin) / 2 + DockLayout::edgeGap;
        scene.hint = {QStringLiteral("Drop apps here"), geometry.point(geometry.alongLength() / 2, middle)};
    }
    return scene;
}

} // namespace quillary
