#pragma once

#include <string_view>

namespace quillary {

/// Whether `bytes` are well-formed UTF-8 (RFC 3629): no overlong forms, no surrogates, nothing above
/// U+10FFFF.
[[nodiscard]] bool isValidUtf8(std::string_view bytes);

} // namespace quillary
