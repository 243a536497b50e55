#pragma once

#include <optional>
#include <variant>

namespace quillary {

/// The value of a preference that should be a switch or a number of seconds.
struct PreferenceValue {
    /// `std::monostate` for a preference that is not set or has another type: text, a date, a list.
    std::variant<std::monostate, bool, double> held;

    /// The boolean, also when a hand-written preference holds it as the number 0 or 1; absent for every other
    /// value.
    [[nodiscard]] std::optional<bool> boolean() const;
    /// The number; absent for a boolean and for a number that is not finite.
    [[nodiscard]] std::optional<double> number() const;
};

} // namespace quillary
