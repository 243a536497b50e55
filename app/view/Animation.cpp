#include "app/view/Animation.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillary {

namespace {

// Values are shares of 1 or lengths in points; less than a thousandth of either cannot be seen.
constexpr double stillOffset = 0.001;
constexpr double stillVelocity = 0.01;

} // namespace

double easeOut(double fraction) {
    const double left = 1 - std::clamp(fraction, 0.0, 1.0);
    return 1 - left * left * left;
}

EasedValue::EasedValue(double duration, double value)
    : m_duration(duration), m_origin(value), m_target(value) {}

void EasedValue::moveTo(double target, double now) {
    if (target != m_target) {
        m_origin = value(now);
        m_target = target;
        m_start = now;
    }
}

void EasedValue::jumpTo(double value) {
    m_origin = m_target = value;
}

double EasedValue::value(double now) const {
    return m_origin + (m_target - m_origin) * easeOut((now - m_start) / m_duration);
}

bool EasedValue::settled(double now) const {
    return m_origin == m_target || now - m_start >= m_duration;
}

Spring::Spring(double response, double dampingFraction, double value)
    : m_frequency(2 * std::numbers::pi / response), m_damping(dampingFraction), m_target(value) {}

void Spring::moveTo(double target, double now) {
    if (target == m_target) {
        return;
    }
    const State current = state(now);
    m_origin = {m_target + current.offset - target, current.velocity};
    m_target = target;
    m_start = now;
}

void Spring::jumpTo(double value) {
    m_target = value;
    m_origin = {0, 0};
}

void Spring::displace(double offset, double now) {
    m_origin = {offset, state(now).velocity};
    m_start = now;
}

double Spring::value(double now) const {
    return m_target + state(now).offset;
}

bool Spring::settled(double now) const {
    const State current = state(now);
    return std::abs(current.offset) < stillOffset && std::abs(current.velocity) < stillVelocity;
}

Spring::State Spring::state(double now) const {
    const double elapsed = std::max(now - m_start, 0.0);
    const double decay = m_damping * m_frequency;
    const double damped = m_frequency * std::sqrt(1 - m_damping * m_damping);
    const double cosine = m_origin.offset;
    const double sine = (m_origin.velocity + decay * m_origin.offset) / damped;
    const double envelope = std::exp(-decay * elapsed);
    const double c = std::cos(damped * elapsed);
    const double s = std::sin(damped * elapsed);
    return {envelope * (cosine * c + sine * s),
            envelope * ((sine * damped - decay * cosine) * c - (cosine * damped + decay * sine) * s)};
}

} // namespace quillary
