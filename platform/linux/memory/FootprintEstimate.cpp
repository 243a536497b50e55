#include "platform/linux/memory/FootprintEstimate.h"

#include <algorithm>
#include <cmath>

namespace quillary {

namespace {

constexpr double driftAMinute = 0.05;
constexpr double secondsAMinute = 60.0;

} // namespace

void FootprintEstimate::setExact(std::optional<std::uint64_t> bytes, double now) {
    m_reading = Reading{.exact = bytes, .unshared = m_unshared, .moment = now};
}

std::uint64_t FootprintEstimate::bytes() const {
    if (!m_reading || !m_reading->exact) {
        return m_unshared;
    }
    const auto exact = *m_reading->exact;
    if (m_unshared >= m_reading->unshared) {
        return exact + (m_unshared - m_reading->unshared);
    }
    const double kept = static_cast<double>(m_unshared) / static_cast<double>(m_reading->unshared);
    return static_cast<std::uint64_t>(static_cast<double>(exact) * kept);
}

double FootprintEstimate::doubt(double now) const {
    const auto unshared = static_cast<double>(m_unshared);
    if (!m_reading) {
        return unshared;
    }
    const double minutes = std::max(now - m_reading->moment, 0.0) / secondsAMinute;
    return std::abs(unshared - static_cast<double>(m_reading->unshared)) + unshared * driftAMinute * minutes;
}

} // namespace quillary
