#include "platform/linux/login/AutostartEntry.h"

#include "core/Utf8.h"
#include "platform/linux/glib/GlibText.h"
#include "platform/linux/glib/KeyFile.h"
#include "platform/linux/glib/Released.h"

#include <algorithm>
#include <string_view>

#include <glib.h>

namespace quillary::AutostartEntry {

namespace {

constexpr std::size_t largestFile = std::size_t{64} << 10U;
constexpr auto group = G_KEY_FILE_DESKTOP_GROUP;
constexpr auto enabledKey = "X-GNOME-Autostart-enabled";

// For writing, which `KeyFile` does not do.
using NewEntry = Released<GKeyFile, g_key_file_unref>;

bool namesOneOf(const KeyFile& keys, const char* key, const std::vector<std::string>& wanted) {
    const auto names = keys.list(group, key);
    return std::ranges::find_first_of(names, wanted) != names.end();
}

void setText(GKeyFile* entry, const char* key, const std::string& value) {
    g_key_file_set_string(entry, group, key, value.c_str());
}

NewEntry namedEntry(const std::string& name) {
    NewEntry entry(g_key_file_new());
    setText(entry.get(), G_KEY_FILE_DESKTOP_KEY_TYPE, G_KEY_FILE_DESKTOP_TYPE_APPLICATION);
    setText(entry.get(), G_KEY_FILE_DESKTOP_KEY_NAME, name);
    return entry;
}

// The key file escapes this once more, as it does every value.
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
    return result + '"';
}

} // namespace

std::optional<std::string> text(const std::string& name, const std::string& icon,
                                const std::string& program) {
    // A key file ends at a zero byte.
    if (!isValidUtf8(program) || program.find_first_of(std::string_view("=\0", 2)) != std::string::npos) {
        return std::nullopt;
    }
    const auto entry = namedEntry(name);
    setText(entry.get(), G_KEY_FILE_DESKTOP_KEY_ICON, icon);
    setText(entry.get(), G_KEY_FILE_DESKTOP_KEY_EXEC, quotedArgument(program));
    g_key_file_set_boolean(entry.get(), group, G_KEY_FILE_DESKTOP_KEY_TERMINAL, FALSE);
    g_key_file_set_boolean(entry.get(), group, enabledKey, TRUE);
    return takeText(g_key_file_to_data(entry.get(), nullptr, nullptr));
}

std::string hiddenText(const std::string& name) {
    const auto entry = namedEntry(name);
    g_key_file_set_boolean(entry.get(), group, G_KEY_FILE_DESKTOP_KEY_HIDDEN, TRUE);
    return takeText(g_key_file_to_data(entry.get(), nullptr, nullptr));
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
