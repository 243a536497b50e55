#pragma once

#include <string>
#include <string_view>

namespace quillary {

/// The text with A–Z in lower case, whatever the locale.
[[nodiscard]] std::string lowered(std::string_view text);

/// The part after the last '/'.
[[nodiscard]] std::string_view baseName(std::string_view path);

} // namespace quillary
