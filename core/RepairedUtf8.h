#pragma once

#include <string>
#include <string_view>

namespace quillary {

/// The bytes as well-formed UTF-8: each maximal part that is not becomes one U+FFFD (the Unicode Standard,
/// section 3.9, "Substitution of Maximal Subparts").
[[nodiscard]] std::string repairedUtf8(std::string_view bytes);

} // namespace quillary
