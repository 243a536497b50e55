#pragma once

namespace quillary {

/// The cubic ease-out: 0 at 0, 1 at 1 with no velocity there. The fraction is clamped to 0…1.
[[nodiscard]] double easeOut(double fraction);

/// A value that reaches its target in a fixed time, easing out. Times are seconds.
class EasedValue {
public:
    /// At rest at `value`.
    EasedValue(double duration, double value);

    /// Starts towards the target from the value at `now`. Does nothing when that is the target already.
    void moveTo(double target, double now);
    /// Sets the value at once.
    void jumpTo(double value);

    [[nodiscard]] double target() const { return m_target; }
    [[nodiscard]] double value(double now) const;
    [[nodiscard]] bool settled(double now) const;

private:
    double m_duration;
    double m_origin;
    double m_target;
    double m_start = 0;
};

/// A value on a damped spring, by the closed solution of its equation: angular frequency 2π / response,
/// damping ratio below 1. Times are seconds.
class Spring {
public:
    /// At rest at `value`.
    Spring(double response, double dampingFraction, double value);

    /// Starts towards the target from the value at `now`, keeping its velocity.
    void moveTo(double target, double now);
    /// Sets the value at once, at rest.
    void jumpTo(double value);
    /// Moves the value to this offset from its target at once, keeping its velocity.
    void displace(double offset, double now);

    [[nodiscard]] double target() const { return m_target; }
    [[nodiscard]] double value(double now) const;
    /// Whether the value is so close to its target, and so slow, that the remaining movement is invisible.
    [[nodiscard]] bool settled(double now) const;

private:
    // The offset is from the target.
    struct State {
        double offset, velocity;
    };
    [[nodiscard]] State state(double now) const;

    double m_frequency;
    double m_damping;
    double m_target;
    double m_start = 0;
    // The state at the start of the movement.
    State m_origin{0, 0};
};

} // namespace quillary
