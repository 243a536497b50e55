#include "platform/macos/MovementPace.h"

#include <algorithm>

namespace quillary {

namespace {

// Half a frame at 60 Hz, in seconds.
constexpr double frame = 0.008;

} // namespace

double MovementPace::wait(double now) const {
    return m_lastTime ? std::clamp(*m_lastTime + frame - now, 0.0, frame) : 0.0;
}

bool MovementPace::accepts(QPointF place, double now) {
    if (m_lastPlace && *m_lastPlace == place) {
        return false;
    }
    m_lastPlace = place;
    m_lastTime = now;
    return true;
}

} // namespace quillary
