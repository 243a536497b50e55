#pragma once

#include <string>
#include <string_view>

namespace quillary {

/// The text as one line of the unified log: line breaks and control characters become spaces, malformed UTF-8
/// becomes U+FFFD. The line is truncated to 1,000 bytes, because the log keeps little more of a string.
[[nodiscard]] std::string logLine(std::string_view text);

} // namespace quillary
