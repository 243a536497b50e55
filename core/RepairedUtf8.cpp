#include "core/RepairedUtf8.h"

#include "core/Utf8.h"

#include <algorithm>
#include <cstddef>

namespace quillary {

namespace {

constexpr std::size_t longestSequence = 4;

/// Whether some well-formed sequence begins with these bytes. Each ending that the standard's table of
/// permitted ranges tells apart is tried with its lowest and highest continuation.
bool beginsSequence(std::string_view bytes) {
    for (const char ending : {'\x80', '\x90', '\xA0', '\xBF'}) {
        std::string candidate(bytes);
        while (candidate.size() < longestSequence) {
            candidate += ending;
            if (isValidUtf8(candidate)) {
                return true;
            }
        }
    }
    return false;
}

/// The length of the well-formed sequence at the start; 0 when there is none.
std::size_t sequenceLength(std::string_view bytes) {
    for (std::size_t length = 1; length <= std::min(longestSequence, bytes.size()); ++length) {
        if (isValidUtf8(bytes.substr(0, length))) {
            return length;
        }
    }
    return 0;
}

/// The length of what one replacement stands for.
std::size_t brokenLength(std::string_view bytes) {
    std::size_t length = 1;
    while (length < std::min(longestSequence - 1, bytes.size()) &&
           beginsSequence(bytes.substr(0, length + 1))) {
        ++length;
    }
    return length;
}

} // namespace

std::string repairedUtf8(std::string_view bytes) {
    if (isValidUtf8(bytes)) {
        return std::string(bytes);
    }
    std::string text;
    while (!bytes.empty()) {
        if (const std::size_t length = sequenceLength(bytes); length > 0) {
            text += bytes.substr(0, length);
            bytes.remove_prefix(length);
        } else {
            text += "\xEF\xBF\xBD";
            bytes.remove_prefix(brokenLength(bytes));
        }
    }
    return text;
}

} // namespace quillary
