#pragma once

#include <QPointF>

#include <optional>

namespace quillary {

/// Holds the pointer's movements back to one a frame, and those that lead nowhere altogether.
class MovementPace {
public:
    /// The seconds to wait before a movement that was noticed `now` may be told: 0 when the last one was told
    /// long enough ago. Seconds on a monotonic clock.
    [[nodiscard]] double wait(double now) const;
    /// Whether this place is to be told; notes that it is.
    [[nodiscard]] bool tells(QPointF place, double now);

private:
    std::optional<QPointF> m_lastPlace;
    std::optional<double> m_lastTime;
};

} // namespace quillary
