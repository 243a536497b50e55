#include "core/Utf8.h"

#include <cstddef>

namespace quillary {

namespace {

struct Sequence {
    std::size_t length;
    // The permitted range of the second byte excludes overlong forms, surrogates and what lies above
    // U+10FFFF.
    unsigned char secondMin;
    unsigned char secondMax;
};

Sequence sequence(unsigned char lead) {
    if (lead < 0x80) {
        return {1, 0, 0};
    }
    if (lead < 0xC2) {
        return {0, 0, 0};
    }
    if (lead < 0xE0) {
        return {2, 0x80, 0xBF};
    }
    if (lead < 0xF0) {
        const auto first = static_cast<unsigned char>(lead == 0xE0 ? 0xA0 : 0x80);
        const auto last = static_cast<unsigned char>(lead == 0xED ? 0x9F : 0xBF);
        return {3, first, last};
    }
    if (lead < 0xF5) {
        const auto first = static_cast<unsigned char>(lead == 0xF0 ? 0x90 : 0x80);
        const auto last = static_cast<unsigned char>(lead == 0xF4 ? 0x8F : 0xBF);
        return {4, first, last};
    }
    return {0, 0, 0};
}

} // namespace

bool isValidUtf8(std::string_view bytes) {
    const auto byte = [&bytes](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
    for (std::size_t start = 0; start < bytes.size();) {
        const Sequence expected = sequence(byte(start));
        if (expected.length == 0 || expected.length > bytes.size() - start) {
            return false;
        }
        if (expected.length > 1 &&
            (byte(start + 1) < expected.secondMin || byte(start + 1) > expected.secondMax)) {
            return false;
        }
        for (std::size_t at = start + 2; at < start + expected.length; ++at) {
            if ((byte(at) & 0xC0U) != 0x80U) {
                return false;
            }
        }
        start += expected.length;
    }
    return true;
}

} // namespace quillary
