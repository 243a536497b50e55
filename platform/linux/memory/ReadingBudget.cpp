#include "platform/linux/memory/ReadingBudget.h"

#include <algorithm>

namespace quillary {

namespace {

constexpr double share = 0.0015;
// Enough to read a browser of twenty processes once.
constexpr double firstCredit = 0.040;
constexpr double largestCredit = 0.040;
// A tenth of the share: with thousands of processes all figures still become exact in the end.
constexpr double leastShare = 0.00015;

} // namespace

void ReadingBudget::begin(double now) {
    if (m_last < 0) {
        m_credit = firstCredit;
        m_earned = 0;
    } else {
        m_earned = std::max(now - m_last, 0.0);
        m_credit = std::min(m_credit + share * m_earned, largestCredit);
    }
    m_last = now;
}

void ReadingBudget::takeNecessary(double seconds) {
    m_credit -= std::min(seconds, (share - leastShare) * m_earned);
}

} // namespace quillary
