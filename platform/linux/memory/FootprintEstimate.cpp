#include "platform/linux/memory/FootprintEstimate.h"

#include <algorithm>
#include <cmath>

namespace quillary {

namespace {

constexpr double driftAMinute = 0.05;
constexpr double secondsAMinute = 60.0;

} // namespace

void FootprintEstimate::setExact(std::optional<std::uint64_t> bytes, double now, std::uint64_t family) {
    m_reading = Reading{.exact = bytes, .resident = m_resident, .moment = now, .family = family};
}

std::uint64_t FootprintEstimate::bytes() const {
    if (!m_reading || !m_reading->exact) {
        return m_resident;
    }
    const auto exact = *m_reading->exact;
    if (m_resident >= m_reading->resident) {
        return exact + (m_resident - m_reading->resident);
    }
    return exact - std::min(exact, m_reading->resident - m_resident);
}

double FootprintEstimate::doubt(double now, std::uint64_t family) const {
    const auto resident = static_cast<double>(m_resident);
    if (!m_reading) {
        return resident;
    }
    const double minutes = std::max(now - m_reading->moment, 0.0) / secondsAMinute;
    const auto exact = m_reading->exact.value_or(m_reading->resident);
    const auto shared = m_reading->resident - std::min(exact, m_reading->resident);
    return std::abs(resident - static_cast<double>(m_reading->resident)) +
           static_cast<double>(std::min(shared, family - m_reading->family)) +
           resident * driftAMinute * minutes;
}

} // namespace quillary
