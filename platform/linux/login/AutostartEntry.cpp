#include "platform/linux/login/AutostartEntry.h"

#include "core/Utf8.h"
#include "platform/linux/glib/KeyFile.h"

#include <algorithm>

#include <glib.h>

namespace quillary::AutostartEntry {

namespace {

constexpr std::size_t largestFile = std::size_t{64} << 10U;
constexpr auto group = G_KEY_FILE_DESKTOP_GROUP;
constexpr auto enabledKey = "X-GNOME-Autostart-enabled";

bool namesOneOf(const KeyFile& keys, const char* key, const std::vector<std::string>& wanted) {
    const auto names = keys.list(group, key);
    return std::ranges::find_first_of(names, wanted) != names.end();
}

std::string escapedValue(std::string_view value) {
    std::string result;
    for (const char letter : value) {
        switch (letter) {
        case '\\':
            result += R"(\\)";
            break;
        case '\n':
            result += R"(\n)";
            break;
        case '\r':
            result += R"(\r)";
            break;
        case '\t':
            result += R"(\t)";
            break;
        default:
            result += letter;
        }
    }
    return result;
}

} // namespace

std::string quotedArgument(std::string_view argument) {
    std::string result = "\"";
    for (const char letter : argument) {
        if (std::string_view("\"`$\\").find(letter) != std::string_view::npos) {
            result += '\\';
        } else if (letter == '%') {
            result += '%';
        }
        result += letter;
    }
    return escapedValue(result + '"');
}

std::optional<std::string> text(const std::string& name, const std::string& icon,
                                const std::string& program) {
    if (!isValidUtf8(program) || program.find('=') != std::string::npos) {
        return std::nullopt;
    }
    return "[Desktop Entry]\nType=Application\nName=" + escapedValue(name) + "\nIcon=" + escapedValue(icon) +
           "\nExec=" + quotedArgument(program) + "\nTerminal=false\nX-GNOME-Autostart-enabled=true\n";
}

std::string hiddenText(const std::string& name) {
    return "[Desktop Entry]\nType=Application\nName=" + escapedValue(name) + "\nHidden=true\n";
}

bool starts(const std::filesystem::path& file, const std::vector<std::string>& currentDesktops) {
    const auto entry = KeyFile::read(file, largestFile);
    if (!entry || entry->text(group, G_KEY_FILE_DESKTOP_KEY_TYPE) != G_KEY_FILE_DESKTOP_TYPE_APPLICATION ||
        entry->text(group, G_KEY_FILE_DESKTOP_KEY_EXEC).empty()) {
        return false;
    }
    const bool switchedOff = entry->has(group, enabledKey) && !entry->flag(group, enabledKey);
    if (entry->flag(group, G_KEY_FILE_DESKTOP_KEY_HIDDEN) || switchedOff) {
        return false;
    }
    if (entry->has(group, G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN)) {
        return namesOneOf(*entry, G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN, currentDesktops);
    }
    return !namesOneOf(*entry, G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN, currentDesktops);
}

} // namespace quillary::AutostartEntry
