#pragma once

#include <cstdint>
#include <optional>

namespace quillary {

/// A display's number out of what a screen's description holds for it: 0 when that is missing, no number, or
/// no whole number of 32 bits.
[[nodiscard]] std::uint32_t displayNumber(std::optional<double> described);

} // namespace quillary
