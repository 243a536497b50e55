#include "app/view/ItemPress.h"

#include <cmath>
#include <utility>

namespace quillary {

namespace {

/// A press becomes a drag, and no click any more, beyond this many points.
constexpr double clickReach = 4;

} // namespace

void ItemPress::down(QPointF position, const std::optional<std::string>& path, double now) {
    start = position;
    if (!path) {
        return;
    }
    if (*path != pressedPath) {
        pressedPath = *path;
        pressed.jumpTo(0);
    }
    pressed.moveTo(1, now);
}

std::optional<QPointF> ItemPress::move(QPointF position, double now) {
    if (!start || !beyondClick(position)) {
        return std::nullopt;
    }
    pressed.moveTo(0, now);
    return std::exchange(start, std::nullopt);
}

std::optional<QPointF> ItemPress::up(QPointF position, double now) {
    if (!start) {
        return std::nullopt;
    }
    const bool click = !beyondClick(position);
    const QPointF begun = *std::exchange(start, std::nullopt);
    pressed.moveTo(0, now);
    return click ? std::optional(begun) : std::nullopt;
}

void ItemPress::cancel(double now) {
    start.reset();
    pressed.moveTo(0, now);
}

bool ItemPress::beyondClick(QPointF position) const {
    const QPointF moved = position - *start;
    return std::hypot(moved.x(), moved.y()) > clickReach;
}

} // namespace quillary
