#pragma once

#include <string>
#include <string_view>

namespace quillary {

/// `text` with its first letter in upper case, when that is an ASCII letter; independent of the locale.
[[nodiscard]] inline std::string capitalised(std::string_view text) {
    std::string result(text);
    if (!result.empty() && result.front() >= 'a' && result.front() <= 'z') {
        result.front() = static_cast<char>(result.front() - 'a' + 'A');
    }
    return result;
}

} // namespace quillary
