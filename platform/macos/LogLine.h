#pragma once

#include <string>
#include <string_view>

namespace quillary {

/// The text as one line of a log: UTF-8, with spaces for line breaks and control characters, and U+FFFD for
/// what is no UTF-8. A line is cut at about a thousand bytes, the most that the unified log keeps of a text.
[[nodiscard]] std::string logLine(std::string_view text);

} // namespace quillary
