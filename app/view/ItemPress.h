#pragma once

#include "app/view/Animation.h"

#include <QPointF>

#include <optional>
#include <string>

namespace quillary {

/// The mouse button on a dock's items: what is pressed and how far, and where a press becomes a drag instead
/// of a click. Points are the view's; times are seconds.
class ItemPress {
public:
    /// The button goes down, on the item of that path or beside all of them.
    void down(QPointF position, const std::optional<std::string>& path, double now);
    /// The pointer moves. Where the button went down, when this makes the press a drag.
    [[nodiscard]] std::optional<QPointF> move(QPointF position, double now);
    /// The button comes up. Where it went down, when this makes the press a click.
    [[nodiscard]] std::optional<QPointF> up(QPointF position, double now);
    /// The press comes to nothing.
    void cancel(double now);

    /// Whether the button is down and may still make a click or a drag.
    [[nodiscard]] bool isDown() const { return m_start.has_value(); }
    /// The item that is pressed or springs back; empty before the first press.
    [[nodiscard]] const std::string& path() const { return m_path; }
    /// How far that item looks pressed: 0 not at all, 1 wholly.
    [[nodiscard]] double amount(double now) const { return m_pressed.value(now); }
    [[nodiscard]] bool settled(double now) const { return m_pressed.settled(now); }

private:
    [[nodiscard]] bool beyondClick(QPointF position) const;

    std::optional<QPointF> m_start;
    std::string m_path;
    EasedValue m_pressed{0.1, 0};
};

} // namespace quillary
