#include "platform/x11/NativeScreens.h"

#include <algorithm>
#include <cmath>

namespace quillary {

namespace {

int outside(int value, int low, int high) {
    return std::max({low - value, 0, value - high});
}

int distance(const QRect& rect, QPoint point) {
    return outside(point.x(), rect.left(), rect.right()) + outside(point.y(), rect.top(), rect.bottom());
}

} // namespace

QPointF NativeScreen::toPoints(QPoint native) const {
    const QPoint origin = geometry.topLeft();
    return QPointF(native - origin) / scale + origin;
}

QRectF NativeScreen::toPoints(const QRect& native) const {
    const auto rounded = [](QPointF point) { return QPointF(std::round(point.x()), std::round(point.y())); };
    const QPoint bottomRight = native.topLeft() + QPoint(native.width(), native.height());
    return {rounded(toPoints(native.topLeft())), rounded(toPoints(bottomRight))};
}

QRectF toGlobalPoints(const std::vector<NativeScreen>& screens, const QRect& native) {
    QRectF whole;
    for (const auto& screen : screens) {
        const QRect part = native & screen.geometry;
        if (!part.isEmpty()) {
            whole |= screen.toPoints(part);
        }
    }
    return whole.isEmpty() ? QRectF(toGlobalPoints(screens, native.topLeft()), QSizeF(native.size())) : whole;
}

QPointF toGlobalPoints(const std::vector<NativeScreen>& screens, QPoint native) {
    const auto nearest = std::ranges::min_element(
        screens, {}, [&](const NativeScreen& screen) { return distance(screen.geometry, native); });
    return nearest == screens.end() ? QPointF(native) : nearest->toPoints(native);
}

} // namespace quillary
