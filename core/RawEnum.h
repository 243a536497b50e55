#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace quillary {

/// One row of an enumeration's table: a case and the string that stands for it in files.
template<typename E>
struct RawCase {
    E value;
    std::string_view raw;
};

/// An enumeration becomes string-backed by a `constexpr std::array<RawCase<E>, N> rawCases(E)` beside it,
/// which lists every case once, in declaration order. The argument only selects the table.
template<typename E>
concept RawEnum = requires(E value) {
    rawCases(value).size();
};

/// The string that stands for `value`; empty for a value that is not a case of the enumeration.
template<RawEnum E>
[[nodiscard]] constexpr std::string_view rawValue(E value) {
    for (const RawCase<E>& row : rawCases(E{})) {
        if (row.value == value) {
            return row.raw;
        }
    }
    return {};
}

/// The case that `raw` stands for, compared exactly; nothing for an unknown string.
template<RawEnum E>
[[nodiscard]] constexpr std::optional<E> fromRawValue(std::string_view raw) {
    for (const RawCase<E>& row : rawCases(E{})) {
        if (row.raw == raw) {
            return row.value;
        }
    }
    return std::nullopt;
}

/// All cases in declaration order.
template<RawEnum E>
[[nodiscard]] constexpr auto allCases() {
    constexpr auto rows = rawCases(E{});
    std::array<E, rows.size()> cases{};
    std::ranges::transform(rows, cases.begin(), &RawCase<E>::value);
    return cases;
}

} // namespace quillary
