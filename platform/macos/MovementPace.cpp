#include "platform/macos/MovementPace.h"

#include <algorithm>

namespace quillary {

namespace {

// Half a frame of the slowest usual screen.
constexpr double frame = 0.008;

} // namespace

double MovementPace::wait(double now) const {
    return lastTime ? std::clamp(*lastTime + frame - now, 0.0, frame) : 0.0;
}

bool MovementPace::tells(QPointF place, double now) {
    if (lastPlace && *lastPlace == place) {
        return false;
    }
    lastPlace = place;
    lastTime = now;
    return true;
}

} // namespace quillary
