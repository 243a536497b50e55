#include "platform/linux/windows/UnitName.h"

#include "core/Paths.h"
#include "core/Utf8.h"

#include <vector>

#include <glib.h>

namespace quillary {

namespace {

constexpr std::size_t longestUnitName = 255;
constexpr std::size_t uuidLength = 36;

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    std::size_t begin = 0;
    while (true) {
        const auto end = text.find(separator, begin);
        parts.push_back(text.substr(begin, end - begin));
        if (end == std::string_view::npos) {
            return parts;
        }
        begin = end + 1;
    }
}

bool takeSuffix(std::string_view& text, std::string_view suffix) {
    if (!text.ends_with(suffix)) {
        return false;
    }
    text.remove_suffix(suffix.size());
    return true;
}

UnitApplication applicationScope(std::string_view body) {
    const auto parts = split(body, '-');
    if (parts.size() < 2) {
        return {};
    }
    return {.id = unescapeUnitPart(parts[parts.size() - 2]),
            .sandboxed = parts.size() > 2 && parts[0] == "flatpak"};
}

UnitApplication applicationService(std::string_view body) {
    const auto parts = split(body.substr(0, body.find('@')), '-');
    return {.id = unescapeUnitPart(parts.back()), .sandboxed = parts.size() > 1 && parts[0] == "flatpak"};
}

UnitApplication snapScope(std::string_view body) {
    const auto dot = body.find('.');
    if (dot == std::string_view::npos) {
        return {};
    }
    const auto snap = body.substr(0, dot);
    auto application = body.substr(dot + 1);
    if (application.size() > uuidLength + 1) {
        application.remove_suffix(uuidLength + 1);
    }
    return {.id = unescapeUnitPart(snap) + "_" + unescapeUnitPart(application), .sandboxed = true};
}

int hexDigit(char digit) {
    return g_ascii_xdigit_value(digit);
}

} // namespace

UnitApplication unitApplication(std::string_view controlGroup) {
    auto unit = baseName(controlGroup);
    const bool isScope = takeSuffix(unit, ".scope");
    if (!isScope && !takeSuffix(unit, ".service")) {
        return {};
    }
    constexpr std::string_view applicationMark = "app-";
    constexpr std::string_view snapMark = "snap.";
    if (unit.starts_with(applicationMark)) {
        unit.remove_prefix(applicationMark.size());
        return isScope ? applicationScope(unit) : applicationService(unit);
    }
    if (unit.starts_with(snapMark) && isScope) {
        return snapScope(unit.substr(snapMark.size()));
    }
    return {};
}

std::string scopeName(std::string_view entryStem, std::int64_t pid) {
    auto name = "app-quillary-" + escapeUnitPart(entryStem) + "-" + std::to_string(pid) + ".scope";
    return name.size() <= longestUnitName ? name : std::string();
}

std::string escapeUnitPart(std::string_view text) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string result;
    for (const char character : text) {
        const bool plain = g_ascii_isalnum(character) || character == ':' || character == '_' ||
                           (character == '.' && !result.empty());
        if (plain) {
            result += character;
        } else {
            const auto byte = static_cast<unsigned char>(character);
            result += "\\x";
            result += digits[byte >> 4U];
            result += digits[byte & 15U];
        }
    }
    return result;
}

std::string unescapeUnitPart(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const bool escaped =
            text.size() >= 4 && text.starts_with("\\x") && hexDigit(text[2]) >= 0 && hexDigit(text[3]) >= 0;
        if (escaped) {
            result += static_cast<char>(hexDigit(text[2]) * 16 + hexDigit(text[3]));
        } else {
            result += text.front();
        }
        text.remove_prefix(escaped ? 4 : 1);
    }
    const bool isText = result.find('\0') == std::string::npos && isValidUtf8(result);
    return isText ? result : std::string();
}

} // namespace quillary
