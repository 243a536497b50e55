#pragma once

namespace quillary {

/// The processor time that may be spent on exact readings, which are expensive: a share of the time that
/// passes, less what the cheap readings took. Unused time is kept up to a limit. A reading that exceeds the
/// budget leaves a debt, so that the share holds on average.
class ReadingBudget {
public:
    /// A sample begins at the time `now` (seconds on a monotonic clock). The first sample may spend more, so
    /// that its figures are exact at once.
    void begin(double now);
    /// Subtracts the seconds of processor time that cheap readings took. They cannot be left out, so a tenth
    /// of what the sample earned is always left for exact ones.
    void takeNecessary(double seconds);
    /// Subtracts the seconds of processor time that an exact reading took.
    void take(double seconds) { m_credit -= seconds; }
    /// Whether another exact reading may begin.
    [[nodiscard]] bool isLeft() const { return m_credit > 0; }

private:
    // When the last sample began; negative before the first.
    double m_last = -1;
    double m_earned = 0;
    double m_credit = 0;
};

} // namespace quillary
