#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillary {

/// The text as one line of UTF-8 of at most `longest` bytes, cut at a character: each control character and
/// line break (U+2028 and U+2029 too) becomes a space, each byte that belongs to no well-formed UTF-8 becomes
/// `malformed`.
[[nodiscard]] std::string singleLine(std::string_view text, std::size_t longest, std::string_view malformed);

} // namespace quillary
