#pragma once

#include <optional>
#include <variant>

namespace quillary {

/// A value of some preference, as far as the program tells them apart.
struct PreferenceValue {
    /// Not set.
    struct Absent {
        bool operator==(const Absent&) const = default;
    };
    /// Text, a date, a list: nothing that a switch or a number of seconds could be.
    struct Other {
        bool operator==(const Other&) const = default;
    };

    std::variant<Absent, Other, bool, double> held;

    /// A boolean, or a number that is exactly 0 or 1, as preferences written by hand hold them; absent for
    /// everything else.
    [[nodiscard]] std::optional<bool> boolean() const;
    /// A finite number; absent for everything else, a boolean among it.
    [[nodiscard]] std::optional<double> number() const;
};

} // namespace quillary
