#include "platform/linux/login/AutostartEntry.h"

#include "core/BoundedFile.h"
#include "platform/linux/glib/GlibText.h"
#include "platform/linux/glib/Released.h"

#include <algorithm>

#include <glib.h>

namespace quillary::AutostartEntry {

namespace {

constexpr std::size_t largestFile = std::size_t{64} << 10U;
constexpr auto group = G_KEY_FILE_DESKTOP_GROUP;
constexpr auto enabledKey = "X-GNOME-Autostart-enabled";

using KeyFile = Released<GKeyFile, g_key_file_unref>;

bool holds(GKeyFile* keys, const char* key) {
    return g_key_file_has_key(keys, group, key, nullptr) != FALSE;
}

bool flag(GKeyFile* keys, const char* key) {
    return g_key_file_get_boolean(keys, group, key, nullptr) != FALSE;
}

bool namesOneOf(GKeyFile* keys, const char* key, const std::vector<std::string>& wanted) {
    const auto names = takeTexts(g_key_file_get_string_list(keys, group, key, nullptr, nullptr));
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
    const bool isText =
        g_utf8_validate(program.data(), static_cast<gssize>(program.size()), nullptr) != FALSE;
    if (!isText || program.find('=') != std::string::npos) {
        return std::nullopt;
    }
    return "[Desktop Entry]\nType=Application\nName=" + escapedValue(name) + "\nIcon=" + escapedValue(icon) +
           "\nExec=" + quotedArgument(program) + "\nTerminal=false\nX-GNOME-Autostart-enabled=true\n";
}

std::string hiddenText(const std::string& name) {
    return "[Desktop Entry]\nType=Application\nName=" + escapedValue(name) + "\nHidden=true\n";
}

bool starts(const std::filesystem::path& file, const std::vector<std::string>& currentDesktops) {
    const auto bytes = readBoundedFile(file, largestFile);
    const KeyFile keys(g_key_file_new());
    if (!bytes || g_key_file_load_from_data(keys.get(), bytes->data(), bytes->size(), G_KEY_FILE_NONE,
                                            nullptr) == FALSE) {
        return false;
    }
    GKeyFile* entry = keys.get();
    if (takeText(g_key_file_get_string(entry, group, G_KEY_FILE_DESKTOP_KEY_TYPE, nullptr)) !=
            G_KEY_FILE_DESKTOP_TYPE_APPLICATION ||
        takeText(g_key_file_get_string(entry, group, G_KEY_FILE_DESKTOP_KEY_EXEC, nullptr)).empty()) {
        return false;
    }
    const bool switchedOff = holds(entry, enabledKey) && !flag(entry, enabledKey);
    if (flag(entry, G_KEY_FILE_DESKTOP_KEY_HIDDEN) || switchedOff) {
        return false;
    }
    if (holds(entry, G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN)) {
        return namesOneOf(entry, G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN, currentDesktops);
    }
    return !namesOneOf(entry, G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN, currentDesktops);
}

} // namespace quillary::AutostartEntry
