#include "app/view/Animation.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillary {

namespace {

// Of a share, where 1 is the whole, or of a point: less of either cannot be seen.
constexpr double stillOffset = 0.001;
constexpr double stillVelocity = 0.01;

} // namespace

double easeOut(double fraction) {
    const double left = 1 - std::clamp(fraction, 0.0, 1.0);
    return 1 - left * left * left;
}

EasedValue::EasedValue(double seconds, double value) : duration(seconds), begun(value), goal(value) {}

void EasedValue::moveTo(double target, double now) {
    if (target != goal) {
        begun = value(now);
        goal = target;
        start = now;
    }
}

void EasedValue::jumpTo(double value) {
    begun = goal = value;
}

double EasedValue::value(double now) const {
    return begun + (goal - begun) * easeOut((now - start) / duration);
}

bool EasedValue::settled(double now) const {
    return begun == goal || now - start >= duration;
}

Spring::Spring(double response, double dampingFraction, double value)
    : frequency(2 * std::numbers::pi / response), damping(dampingFraction), goal(value) {}

void Spring::moveTo(double target, double now) {
    if (target == goal) {
        return;
    }
    const State current = state(now);
    begun = {goal + current.offset - target, current.velocity};
    goal = target;
    start = now;
}

void Spring::jumpTo(double value) {
    goal = value;
    begun = {0, 0};
}

void Spring::displace(double offset, double now) {
    begun = {offset, state(now).velocity};
    start = now;
}

double Spring::value(double now) const {
    return goal + state(now).offset;
}

bool Spring::settled(double now) const {
    const State current = state(now);
    return std::abs(current.offset) < stillOffset && std::abs(current.velocity) < stillVelocity;
}

Spring::State Spring::state(double now) const {
    const double elapsed = std::max(now - start, 0.0);
    const double decay = damping * frequency;
    const double damped = frequency * std::sqrt(1 - damping * damping);
    const double cosine = begun.offset;
    const double sine = (begun.velocity + decay * begun.offset) / damped;
    const double envelope = std::exp(-decay * elapsed);
    const double c = std::cos(damped * elapsed);
    const double s = std::sin(damped * elapsed);
    return {envelope * (cosine * c + sine * s),
            envelope * ((sine * damped - decay * cosine) * c - (cosine * damped + decay * sine) * s)};
}

} // namespace quillary
