#include "core/SingleLine.h"

#include "core/Utf8.h"

#include <algorithm>

namespace quillary {

namespace {

constexpr std::size_t longestSequence = 4;

/// The first character; empty when the text begins with no well-formed one.
std::string_view firstCharacter(std::string_view text) {
    for (std::size_t length = 1; length <= std::min(longestSequence, text.size()); ++length) {
        if (isValidUtf8(text.substr(0, length))) {
            return text.substr(0, length);
        }
    }
    return {};
}

bool isControlOrBreak(std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    if (character.size() == 1) {
        constexpr unsigned char deleteCharacter = 0x7F;
        return first < ' ' || first == deleteCharacter;
    }
    const bool isSecondControl = first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
    return isSecondControl || character == "\xE2\x80\xA8" || character == "\xE2\x80\xA9";
}

} // namespace

std::string singleLine(std::string_view text, std::size_t longest, std::string_view malformed) {
    std::string line;
    while (!text.empty()) {
        const auto character = firstCharacter(text);
        auto part = character;
        if (character.empty()) {
            part = malformed;
        } else if (isControlOrBreak(character)) {
            part = " ";
        }
        if (line.size() + part.size() > longest) {
            break;
        }
        line += part;
        text.remove_prefix(std::max<std::size_t>(character.size(), 1));
    }
    return line;
}

} // namespace quillary
