#pragma once

#include <QPointF>

#include <optional>

namespace quillary {

/// Limits the pointer's movements to one every 8 ms and filters out those that end where the last one did.
class MovementPace {
public:
    /// How long to delay a movement noticed at `now`: 0 when the last accepted one is long enough ago.
    /// Seconds; `now` is on a monotonic clock.
    [[nodiscard]] double wait(double now) const;
    /// Whether the place differs from the last accepted one. If so, it is the last accepted one from now on.
    [[nodiscard]] bool accepts(QPointF place, double now);

private:
    std::optional<QPointF> m_lastPlace;
    std::optional<double> m_lastTime;
};

} // namespace quillary
