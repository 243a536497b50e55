#pragma once

#include <string>
#include <string_view>

namespace quillary {

/// The text with A–Z in lower case, whatever the locale.
[[nodiscard]] std::string lowered(std::string_view text);

/// Whether the texts are equal but for the case of A–Z.
[[nodiscard]] bool equalIgnoringCase(std::string_view left, std::string_view right);

} // namespace quillary
