#include "platform/linux/memory/FootprintEstimate.h"

#include <algorithm>
#include <cmath>

namespace quillary {

namespace {

constexpr double driftAMinute = 0.05;
constexpr double secondsAMinute = 60.0;

} // namespace

void FootprintEstimate::setExact(std::optional<std::uint64_t> bytes, double now, std::uint64_t family) {
    m_reading = Reading{.exact = bytes, .unshared = m_unshared, .moment = now, .family = family};
}

std::uint64_t FootprintEstimate::bytes() const {
    if (!m_reading || !m_reading->exact) {
        return m_unshared;
    }
    const auto exact = *m_reading->exact;
    if (m_unshared >= m_reading->unshared) {
        return exact + (m_unshared - m_reading->unshared);
    }
    return exact - std::min(exact, m_reading->unshared - m_unshared);
}

double FootprintEstimate::doubt(double now, std::uint64_t family) const {
    const auto unshared = static_cast<double>(m_unshared);
    if (!m_reading) {
        return unshared;
    }
    const double minutes = std::max(now - m_reading->moment, 0.0) / secondsAMinute;
    const auto exact = m_reading->exact.value_or(m_reading->unshared);
    const auto shared = m_reading->unshared - std::min(exact, m_reading->unshared);
    return std::abs(unshared - static_cast<double>(m_reading->unshared)) +
           static_cast<double>(std::min(shared, family - m_reading->family)) +
           unshared * driftAMinute * minutes;
}

} // namespace quillary
