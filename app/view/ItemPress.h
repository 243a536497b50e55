#pragma once

#include "app/ItemId.h"
#include "app/view/Animation.h"

#include <QPointF>

#include <optional>

namespace quillary {

/// Tells clicks from drags on a dock's items, and knows which item looks pressed and how far. Positions are
/// in the view's coordinates, points; times are seconds.
class ItemPress {
public:
    /// Begins a press on that item, or beside all items.
    void down(QPointF position, const std::optional<ItemId>& item, double now);
    /// Handles a movement. Returns where the press began if the movement turns it into a drag.
    [[nodiscard]] std::optional<QPointF> move(QPointF position, double now);
    /// Ends the press. Returns where it began if it was a click.
    [[nodiscard]] std::optional<QPointF> up(QPointF position, double now);
    /// Ends the press without a click.
    void cancel(double now);

    /// Whether a press has begun that may still become a click or a drag.
    [[nodiscard]] bool isDown() const { return m_start.has_value(); }
    /// The item that is pressed or springs back; its path is empty before the first press.
    [[nodiscard]] const ItemId& item() const { return m_item; }
    /// How far that item looks pressed, 0…1.
    [[nodiscard]] double amount(double now) const { return m_pressed.value(now); }
    [[nodiscard]] bool settled(double now) const { return m_pressed.settled(now); }

private:
    [[nodiscard]] bool beyondClick(QPointF position) const;

    std::optional<QPointF> m_start;
    ItemId m_item;
    EasedValue m_pressed{0.1, 0};
};

} // namespace quillary
