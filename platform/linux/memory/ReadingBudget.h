#pragma once

namespace quillary {

/// How much time of a processor may go into dear readings: a share of the time that passes, less what the
/// cheap readings took. What is not used is kept up to a limit; a reading that took longer than expected
/// leaves a debt, so that the share holds on average.
class ReadingBudget {
public:
    /// One sample begins at this moment (seconds on any clock that only goes forward). The first one may
    /// spend more, so that its figures are right at once.
    void begin(double now);
    /// Seconds of a processor that cheap readings took. They happen anyway: some time for dear ones is left.
    void takeNecessary(double seconds);
    /// Seconds of a processor that a dear reading took.
    void take(double seconds) { m_credit -= seconds; }
    /// Whether one more dear reading may begin.
    [[nodiscard]] bool isLeft() const { return m_credit > 0; }

private:
    // Of the next sample; a negative moment stands for "none yet".
    double m_last = -1;
    double m_earned = 0;
    double m_credit = 0;
};

} // namespace quillary
