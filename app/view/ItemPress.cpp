#include "app/view/ItemPress.h"

#include <cmath>
#include <utility>

namespace quillary {

namespace {

/// Further than this, in points, a press is a drag and no click.
constexpr double clickReach = 4;

} // namespace

void ItemPress::down(QPointF position, const std::optional<ItemId>& item, double now) {
    m_start = position;
    if (!item) {
        return;
    }
    if (*item != m_item) {
        m_item = *item;
        m_pressed.jumpTo(0);
    }
    m_pressed.moveTo(1, now);
}

std::optional<QPointF> ItemPress::move(QPointF position, double now) {
    if (!m_start || !beyondClick(position)) {
        return std::nullopt;
    }
    m_pressed.moveTo(0, now);
    return std::exchange(m_start, std::nullopt);
}

std::optional<QPointF> ItemPress::up(QPointF position, double now) {
    if (!m_start) {
        return std::nullopt;
    }
    const bool click = !beyondClick(position);
    const QPointF begun = *std::exchange(m_start, std::nullopt);
    m_pressed.moveTo(0, now);
    return click ? std::optional(begun) : std::nullopt;
}

void ItemPress::cancel(double now) {
    m_start.reset();
    m_pressed.moveTo(0, now);
}

bool ItemPress::beyondClick(QPointF position) const {
    const QPointF moved = position - *m_start;
    return std::hypot(moved.x(), moved.y()) > clickReach;
}

} // namespace quillary
