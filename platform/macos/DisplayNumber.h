#pragma once

#include <cstdint>
#include <optional>

namespace quillary {

/// The number of a display, from the value in its screen's device description. 0 when the value is missing or
/// not a 32-bit whole number.
[[nodiscard]] std::uint32_t displayNumber(std::optional<double> described);

} // namespace quillary
