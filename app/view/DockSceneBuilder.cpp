#include "app/view/DockSceneBuilder.h"

#include <QMarginsF>

#include <algorithm>
#include <cmath>
#include <numbers>

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
constexpr double targetedOpacity = 0.35;

constexpr double hopDuration = 0.55;
constexpr double hopHeight = 0.45;

constexpr double pillFontShare = 0.2;
constexpr double smallestPillFont = 9;
constexpr double pillPadX = 5;
constexpr double pillPadY = 1.5;
constexpr double pillOut = 0.18;
constexpr double pillUp = 0.08;

/// The layout at one moment, computed once for all parts of the scene.
struct Moment {
    const std::vector<DockCell>& cells;
    const DockGeometry& geometry;
    std::vector<double> scales;
    DockLayout::Shifted spread;
    /// The cell that the pointer is on.
    std::optional<std::size_t> hovered;

    Moment(const DockRow& row, const DockSceneState& state)
        : cells(row.cells), geometry(row.geometry), scales(geometry.scales(state.mouseAxis, cells)) {
        if (state.mouseAxis) {
            // By full magnification: while it comes in, the pointer would seem to change cells without
            // moving.
            const auto centers = geometry.layout(scales).centers;
            hovered = geometry.hitTest(*state.mouseAxis, cells, centers, scales);
        }
        for (double& scale : scales) {
            scale = 1 + (scale - 1) * state.magnified;
        }
        spread = geometry.layout(scales);
    }
};

QRectF centred(QPointF center, double width, double height) {
    return {center.x() - width / 2, center.y() - height / 2, width, height};
}

using Ink = DockScene::Ink;

double thicknessOf(const DockGeometry& geometry) {
    constexpr double shelfShare = 0.55;
    return geometry.style == DockStyle::shelf ? geometry.size * shelfShare + DockLayout::dotRoom
                                              : geometry.size + DockLayout::dotRoom + DockLayout::farMargin;
}

// The look of a style's background of that thickness.
DockScene::Background styled(DockStyle style, double thickness, bool targeted) {
    using Outline = DockScene::Background::Outline;
    const Ink accent{Ink::Source::accent, 1};
    const Ink border = targeted ? accent : Ink{Ink::Source::white, 0.22};
    const double borderWidth = targeted ? 2 : 1;
    DockScene::Background look;
    switch (style) {
    case DockStyle::glass:
        look.cornerRadius = std::min(thickness * 0.3, 18.0);
        look.material = Material::ultraThin;
        look.border = border;
        look.borderWidth = borderWidth;
        look.shadow = {.opacity = 0.28, .radius = 8, .offset = {0, 2}};
        break;
    case DockStyle::pill:
        look.outline = Outline::capsule;
        look.material = Material::regular;
        look.border = border;
        look.borderWidth = borderWidth;
        look.shadow = {.opacity = 0.3, .radius = 10, .offset = {0, 3}};
        break;
    case DockStyle::bubbles:
    case DockStyle::minimal:
        look.outline = Outline::capsule;
        // Invisible: the zone takes clicks and drops, not pixels.
        look.farWhite = look.nearWhite = targeted ? 0.12 : 0.001;
        break;
    case DockStyle::shelf:
        look.outline = Outline::shelf;
        look.material = Material::ultraThin;
        look.farWhite = 0.6;
        look.nearWhite = 0.12;
        look.border = targeted ? accent : Ink{Ink::Source::white, 0.85};
        look.borderWidth = targeted ? 2 : 1.2;
        look.shadow = {.opacity = 0.4, .radius = 8, .offset = {0, 3}};
        break;
    }
    return look;
}

DockScene::Background background(const Moment& moment, bool targeted) {
    const DockGeometry& geometry = moment.geometry;
    const double thickness = thicknessOf(geometry);
    const double length = geometry.restLen + moment.spread.extra;
    const QPointF center = geometry.point(geometry.alongLength() / 2, thickness / 2 + DockLayout::edgeGap);
    DockScene::Background look = styled(geometry.style, thickness, targeted);
    look.rect =
        isHorizontal(geometry.edge) ? centred(center, length, thickness) : centred(center, thickness, length);
    if (look.outline == DockScene::Background::Outline::capsule) {
        look.cornerRadius = std::min(thickness, length) / 2;
    }
    return look;
}

DockScene::Separator separator(const DockGeometry& geometry, double along) {
    const QPointF center = geometry.point(along, geometry.size / 2 + iconGap);
    const double length = geometry.size * separatorLength;
    const bool strong = geometry.style == DockStyle::bubbles || geometry.style == DockStyle::minimal;
    return {isHorizontal(geometry.edge) ? centred(center, 1, length) : centred(center, length, 1),
            strong ? 0.35 : 0.22};
}

DockContents::Memory memoryOf(const DockContents& contents, const std::string& path) {
    const auto found = contents.memory.find(path);
    return found != contents.memory.end() ? found->second : DockContents::Memory();
}

std::optional<DockScene::Dot> dot(const DockContents& contents, double along, const std::string& path) {
    if (!contents.running.contains(path)) {
        return std::nullopt;
    }
    const bool active = contents.active == path;
    const RamBadge badge = memoryOf(contents, path).badge;
    DockScene::Dot result{.center = contents.row.geometry.point(along, dotDepth)};
    switch (badge) {
    case RamBadge::none:
        result.diameter = active ? 5 : 4;
        result.ink = {Ink::Source::primaryText, active ? 0.95 : 0.6};
        if (active) {
            result.glow = {Ink::Source::white, 0.8};
        }
        break;
    case RamBadge::heavy:
        result.diameter = 7;
        result.ink = {Ink::Source::amber, 1};
        result.glow = {Ink::Source::amber, 0.9};
        break;
    case RamBadge::hog:
        result.diameter = 8;
        result.ink = {Ink::Source::red, 1};
        result.glow = {Ink::Source::red, 0.9};
        break;
    }
    return result;
}

std::optional<DockScene::Pill> pill(const DockContents& contents, const QRectF& icon, const std::string& path,
                                    const DockTexts& texts) {
    const DockContents::Memory memory = memoryOf(contents, path);
    if (memory.badge != RamBadge::hog || !contents.running.contains(path)) {
        return std::nullopt;
    }
    const QString text = QString::fromStdString(RamBadges::text(memory.bytes));
    const double fontSize = std::max(icon.width() * pillFontShare, smallestPillFont);
    const QSizeF room = texts.pillSize(text, fontSize).grownBy({pillPadX, pillPadY, pillPadX, pillPadY});
    const QPointF topRight = icon.topRight() + QPointF(icon.width() * pillOut, -icon.width() * pillUp);
    return DockScene::Pill{text, fontSize, QRectF(topRight - QPointF(room.width(), 0), room)};
}

// How far a launching icon has hopped away from the edge.
double hop(double time, double size) {
    const double phase = std::fmod(time, hopDuration) / hopDuration;
    return std::sin(phase * std::numbers::pi) * size * hopHeight;
}

DockScene::Icon icon(const DockContents& contents, const Moment& moment, std::size_t index,
                     const DockSceneState& state, const DockTexts& texts) {
    const DockGeometry& geometry = moment.geometry;
    const std::string& path = moment.cells[index].path;
    const double along = moment.spread.centers[index];
    const double size = geometry.size * moment.scales[index];
    const double raised = contents.launching.contains(path) ? hop(state.time, size) : 0;
    const QPointF center = geometry.point(along, size / 2 + iconGap + raised);
    DockScene::Icon result{.path = path,
                           .occurrence = moment.cells[index].occurrence,
                           .rect = centred(center, size, size),
                           .opacity = contents.missing.contains(path) ? missingOpacity : 1,
                           .shadow = DockScene::iconShadow(geometry.style)};
    if (result.is(state.pressedItem)) {
        result.pressed = state.pressed;
    }
    if (state.targetedItem && result.is(*state.targetedItem)) {
        result.highlight = targetedOpacity;
    }
    if (geometry.style == DockStyle::bubbles) {
        result.disc = {center, size * DockScene::discShare};
    }
    result.dot = dot(contents, along, path);
    result.pill = pill(contents, result.rect, path, texts);
    return result;
}

DockScene::Label label(const DockGeometry& geometry, double along, double iconSize, const QString& text,
                       const DockSceneState& state, const DockTexts& texts) {
    const double width = texts.labelWidth(text) + 2 * labelPadX;
    const double farSide = iconSize + iconGap;
    QRectF rect;
    if (isHorizontal(geometry.edge)) {
        // Centred on its icon, or moved inside where the panel or its window would cut it off.
        const double room = std::min<double>(geometry.alongLength(), geometry.frameSize().width());
        const double boxed = std::min(width, room);
        const double middle = std::clamp(along, boxed / 2, room - boxed / 2);
        rect = centred(geometry.point(middle, farSide + labelGap), boxed, labelHeight);
    } else {
        // The label begins at the side nearer to the dock and grows away from it.
        const double boxed = std::min(width, sideLabelBox);
        const QPointF center = geometry.point(along, farSide + sideLabelGap + boxed / 2);
        rect = centred(center, boxed, labelHeight);
    }
    return {.text = text,
            .rect = rect,
            .textRect = rect.adjusted(labelPadX, 0, -labelPadX, 0),
            .cut = rect.width() < width,
            .opacity = state.magnified};
}

// The hint has its place on the middle of a background as deep as that of most styles. The room around it
// reaches to the screen edge and to the ends of the panel.
DockScene::Hint hint(const DockGeometry& geometry) {
    const double depth =
        (geometry.size + DockLayout::dotRoom + DockLayout::farMargin) / 2 + DockLayout::edgeGap;
    const QPointF center = geometry.point(geometry.alongLength() / 2, depth);
    const double length = geometry.alongLength();
    return {QStringLiteral("Drop apps here"), isHorizontal(geometry.edge)
                                                  ? centred(center, length, 2 * depth)
                                                  : centred(center, 2 * depth, length)};
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

DockScene buildDockScene(const DockContents& contents, const DockSceneState& state, const DockTexts& texts) {
    const Moment moment(contents.row, state);
    const DockGeometry& geometry = moment.geometry;
    const auto& centers = moment.spread.centers;
    DockScene scene;
    scene.panelSize = geometry.panelSize();
    scene.edge = geometry.edge;
    scene.style = geometry.style;
    scene.iconSize = geometry.size;
    scene.offset = hideOffset(geometry, state.hidden);
    scene.opacity = std::clamp(1 - state.hidden, 0.0, 1.0);
    scene.background = background(moment, state.dropTargeted);
    scene.icons.reserve(moment.cells.size());
    for (std::size_t i = 0; i < moment.cells.size(); ++i) {
        const DockCell& cell = moment.cells[i];
        if (!cell.isItem()) {
            scene.separators.push_back(separator(geometry, centers[i]));
            continue;
        }
        scene.icons.push_back(icon(contents, moment, i, state, texts));
    }
    if (const auto hit = moment.hovered) {
        scene.label = label(geometry, centers[*hit], geometry.size * moment.scales[*hit],
                            texts.label(moment.cells[*hit].path), state, texts);
    }
    if (moment.cells.empty()) {
        scene.hint = hint(geometry);
    }
    return scene;
}

} // namespace quillary
