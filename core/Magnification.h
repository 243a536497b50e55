#pragma once

#include "core/RawEnum.h"

#include <string>

namespace quillary {

/// How much the icon under the pointer grows.
enum class Magnification { off, subtle, big };

constexpr std::array<RawCase<Magnification>, 3> rawCases(Magnification /*table*/) {
    return {{{Magnification::off, "off"}, {Magnification::subtle, "subtle"}, {Magnification::big, "big"}}};
}

/// The name shown to the user: the raw value with a capital first letter, as in "Subtle".
[[nodiscard]] std::string title(Magnification magnification);

/// The fraction of its size by which an icon directly under the pointer grows: 0, 0.35 or 0.8.
[[nodiscard]] double amount(Magnification magnification);

} // namespace quillary
