#include "platform/macos/LogLine.h"

#include "core/SingleLine.h"

namespace quillary {

namespace {

constexpr std::size_t longestLine = 1000;

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

} // namespace

std::string logLine(std::string_view text) {
    return singleLine(text, longestLine, replacementCharacter);
}

} // namespace quillary
