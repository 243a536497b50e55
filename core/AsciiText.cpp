#include "core/AsciiText.h"

#include <algorithm>

namespace quillary {

namespace {

char loweredLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

} // namespace

std::string lowered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), loweredLetter);
    return result;
}

bool equalIgnoringCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, loweredLetter, loweredLetter);
}

} // namespace quillary
