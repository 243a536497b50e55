#include "app/DockGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quillary {

namespace {

double fittedSize(double configured, double amount, std::span<const DockCell> cells, double maxLength) {
    const auto items = std::ranges::count_if(cells, &DockCell::isItem);
    if (items == 0) {
        return std::max(DockLayout::minimumIconSize,
                        std::min(configured, std::numeric_limits<double>::max()));
    }
    const auto n = static_cast<double>(cells.size());
    const auto k = static_cast<double>(items);
    const double fixed = (n - k) * DockLayout::separatorWidth + std::max(n - 1, 0.0) * DockLayout::spacing +
                         2 * DockLayout::pad + DockLayout::alongSlack;
    const double limit = std::floor((maxLength - fixed) / (amount * DockLayout::growthFactor + k));
    return std::max(DockLayout::minimumIconSize, std::min(configured, limit));
}

std::vector<double> widthsOf(std::span<const DockCell> cells, double size) {
    std::vector<double> widths;
    widths.reserve(cells.size());
    for (const DockCell& cell : cells) {
        widths.push_back(cell.isItem() ? size : DockLayout::separatorWidth);
    }
    return widths;
}

} // namespace

DockGeometry::DockGeometry(const DockConfig& config, std::span<const DockCell> cells, double maxLength)
    : DockGeometry(config, config.iconSize, cells, maxLength) {}

DockGeometry::DockGeometry(const DockConfig& config, double iconSize, std::span<const DockCell> cells,
                           double maxLength)
    : edge(config.edge),
      style(config.style),
      amount(quillary::amount(config.magnification)),
      size(fittedSize(iconSize, amount, cells, maxLength)),
      widths(widthsOf(cells, size)),
      restCenters(DockLayout::restCenters(widths, DockLayout::spacing, DockLayout::pad)),
      restLen(DockLayout::length(widths, DockLayout::spacing, DockLayout::pad)) {}

double DockGeometry::growthRoom() const {
    return size * amount * DockLayout::growthFactor;
}

double DockGeometry::alongLength() const {
    return restLen + growthRoom() + DockLayout::alongSlack;
}

double DockGeometry::rowOffset() const {
    return (growthRoom() + DockLayout::alongSlack) / 2;
}

QSizeF DockGeometry::panelSize() const {
    const bool horizontal = isHorizontal(edge);
    const double labelRoom = horizontal ? DockLayout::labelRoomHorizontal : DockLayout::labelRoomVertical;
    const double depth = labelRoom + size * amount + (size + DockLayout::depthBase) + DockLayout::depthTail;
    return horizontal ? QSizeF(alongLength(), depth) : QSizeF(depth, alongLength());
}

QSize DockGeometry::frameSize() const {
    return panelSize().toSize();
}

QPointF DockGeometry::frameOrigin() const {
    switch (edge) {
    case DockEdge::bottom:
        return {0, frameSize().height() - panelSize().height()};
    case DockEdge::right:
        return {frameSize().width() - panelSize().width(), 0};
    case DockEdge::left:
    case DockEdge::top:
        break;
    }
    return {0, 0};
}

double DockGeometry::along(QPointF point) const {
    return isHorizontal(edge) ? point.x() : point.y();
}

double DockGeometry::depth(QPointF point) const {
    switch (edge) {
    case DockEdge::bottom:
        return panelSize().height() - point.y();
    case DockEdge::left:
        return point.x();
    case DockEdge::right:
        return panelSize().width() - point.x();
    case DockEdge::top:
        break;
    }
    return point.y();
}

QPointF DockGeometry::point(double along, double depth) const {
    switch (edge) {
    case DockEdge::bottom:
        return {along, panelSize().height() - depth};
    case DockEdge::left:
        return {depth, along};
    case DockEdge::right:
        return {panelSize().width() - depth, along};
    case DockEdge::top:
        break;
    }
    return {along, depth};
}

double DockGeometry::magnifiedScale(double mouseAxis, std::size_t index) const {
    return DockLayout::magnifyScale(mouseAxis - (rowOffset() + restCenters[index]), size, amount);
}

std::vector<double> DockGeometry::scales(std::optional<double> mouseAxis,
                                         std::span<const DockCell> cells) const {
    std::vector<double> result(cells.size(), 1.0);
    if (!mouseAxis || amount <= 0) {
        return result;
    }
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (cells[i].isItem()) {
            result[i] = magnifiedScale(*mouseAxis, i);
        }
    }
    return result;
}

DockLayout::Shifted DockGeometry::layout(std::span<const double> scales) const {
    std::vector<double> centers = restCenters;
    for (double& center : centers) {
        center += rowOffset();
    }
    return DockLayout::shifted(centers, widths, scales);
}

bool DockGeometry::isOnIcon(double mouseAxis, double center, double length) {
    return std::abs(mouseAxis - center) <= length / 2 + DockLayout::hitTolerance;
}

std::optional<std::size_t> DockGeometry::hitTest(double mouseAxis, std::span<const DockCell> cells,
                                                 std::span<const double> centers,
                                                 std::span<const double> scales) const {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (cells[i].isItem() && isOnIcon(mouseAxis, centers[i], widths[i] * scales[i])) {
            return i;
        }
    }
    return std::nullopt;
}

DockGeometry::Zone DockGeometry::zone(Pointer before) const {
    const bool active = before == Pointer::onDock;
    const double start = rowOffset();
    const double widened = DockLayout::zoneAlongTolerance + (active ? growthRoom() / 2 : 0);
    return {.alongMin = start - widened,
            .alongMax = restLen + start + widened,
            .depthMin = -DockLayout::zoneBeyondEdge,
            .depthMax =
                size + DockLayout::depthBase + (active ? size * amount : 0) + DockLayout::zoneIntoScreen};
}

bool DockGeometry::isInZone(QPointF point, Pointer before) const {
    const Zone z = zone(before);
    const double a = along(point);
    const double d = depth(point);
    return a >= z.alongMin && a <= z.alongMax && d >= z.depthMin && d <= z.depthMax;
}

bool DockGeometry::isInRevealStrip(QPointF point) const {
    const double a = along(point);
    const double d = depth(point);
    return a >= rowOffset() && a <= restLen + rowOffset() && d >= -DockLayout::zoneBeyondEdge &&
           d <= DockLayout::revealDepth;
}

QRect DockGeometry::inputZone(Pointer before) const {
    const Zone z = zone(before);
    const QRectF window(QPointF(0, 0), frameSize() - QSize(1, 1));
    const QRectF corners = QRectF(point(z.alongMin, z.depthMin), point(z.alongMax, z.depthMax))
                               .normalized()
                               .translated(frameOrigin());
    const double left = std::max(corners.left(), window.left());
    const double top = std::max(corners.top(), window.top());
    const double right = std::min(corners.right(), window.right());
    const double bottom = std::min(corners.bottom(), window.bottom());
    return {QPoint(static_cast<int>(std::ceil(left)), static_cast<int>(std::ceil(top))),
            QPoint(static_cast<int>(std::floor(right)), static_cast<int>(std::floor(bottom)))};
}

} // namespace quillary
