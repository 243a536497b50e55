#include "platform/linux/entries/DesktopEntry.h"

#include "core/BoundedFile.h"
#include "platform/linux/entries/ProgramName.h"
#include "platform/linux/glib/GlibText.h"
#include "platform/linux/glib/KeyFile.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include <glib.h>

namespace quillary {

namespace {

constexpr std::size_t largestEntry = std::size_t{1} << 20U;
constexpr std::size_t longestCommand = 8192;
constexpr std::size_t mostCategories = 64;
constexpr int longestShownName = 256;
constexpr std::string_view mainHeader = "[Desktop Entry]";

// Actions and their translations make up most of a file. Parsing them too doubles the time to build the
// index.
std::string_view mainGroup(std::string_view text) {
    const auto begin = text.starts_with(mainHeader) ? 0 : text.find("\n" + std::string(mainHeader));
    if (begin == std::string_view::npos) {
        return {};
    }
    const auto body = text.substr(begin);
    const auto next = body.find("\n[", 1);
    return next == std::string_view::npos ? body : body.substr(0, next + 1);
}

// The keys of an entry's main group.
class Keys {
public:
    explicit Keys(KeyFile file) : m_file(std::move(file)) {}

    [[nodiscard]] std::string text(const char* key) const { return m_file.text(group, key); }
    [[nodiscard]] std::string localised(const char* key) const { return m_file.localised(group, key); }
    [[nodiscard]] bool flag(const char* key) const { return m_file.flag(group, key); }
    [[nodiscard]] std::vector<std::string> list(const char* key) const { return m_file.list(group, key); }

private:
    static constexpr auto group = G_KEY_FILE_DESKTOP_GROUP;

    KeyFile m_file;
};

bool meet(const std::vector<std::string>& one, const std::vector<std::string>& other) {
    return std::ranges::find_first_of(one, other) != one.end();
}

bool isShown(const Keys& keys, const std::vector<std::string>& currentDesktops) {
    const auto only = keys.list(G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN);
    if (!only.empty() && !meet(only, currentDesktops)) {
        return false;
    }
    return !meet(keys.list(G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN), currentDesktops);
}

bool isInstalled(const std::string& program) {
    return !takeText(g_find_program_in_path(program.c_str())).empty();
}

std::vector<std::string> commandWords(const std::string& command) {
    char** words = nullptr;
    if (command.size() > longestCommand ||
        g_shell_parse_argv(command.c_str(), nullptr, &words, nullptr) == 0) {
        return {};
    }
    return takeTexts(words);
}

// The text must be valid UTF-8, which GKeyFile guarantees.
std::string fitToBeShown(const std::string& text) {
    std::string shown;
    const char* place = text.c_str();
    for (int count = 0; *place != '\0' && count < longestShownName; ++count) {
        const char* next = g_utf8_find_next_char(place, nullptr);
        switch (g_unichar_type(g_utf8_get_char(place))) {
        case G_UNICODE_CONTROL:
        case G_UNICODE_LINE_SEPARATOR:
        case G_UNICODE_PARAGRAPH_SEPARATOR:
            shown += ' ';
            break;
        default:
            shown.append(place, next);
        }
        place = next;
    }
    return shown;
}

bool isFieldCode(const std::string& word) {
    return word.size() == 2 && word.front() == '%';
}

void readCommand(DesktopEntry& entry, const std::string& command) {
    auto words = commandWords(command);
    std::erase_if(words, isFieldCode);
    entry.program = programName(words);
    entry.arguments = words.empty() ? 0 : words.size() - 1;
}

} // namespace

std::string_view withoutEntrySuffix(std::string_view id) {
    return id.ends_with(entrySuffix) ? id.substr(0, id.size() - entrySuffix.size()) : id;
}

std::string DesktopEntry::stem() const {
    return std::string(withoutEntrySuffix(id));
}

std::optional<DesktopEntry> readDesktopEntry(const std::string& path, const std::string& id,
                                             const std::vector<std::string>& currentDesktops) {
    const auto bytes = readBoundedFile(path, largestEntry);
    if (!bytes) {
        return std::nullopt;
    }
    auto file = KeyFile::parse(mainGroup(*bytes));
    if (!file) {
        return std::nullopt;
    }
    const Keys keys(std::move(*file));
    DesktopEntry entry;
    entry.path = path;
    entry.id = id;
    entry.hidden = keys.flag(G_KEY_FILE_DESKTOP_KEY_HIDDEN);
    if (entry.hidden) {
        return entry;
    }
    entry.name = keys.text(G_KEY_FILE_DESKTOP_KEY_NAME);
    entry.localisedName = keys.localised(G_KEY_FILE_DESKTOP_KEY_NAME);
    const auto command = keys.text(G_KEY_FILE_DESKTOP_KEY_EXEC);
    entry.dbusActivatable = keys.flag(G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE);
    if (keys.text(G_KEY_FILE_DESKTOP_KEY_TYPE) != G_KEY_FILE_DESKTOP_TYPE_APPLICATION || entry.name.empty() ||
        (command.empty() && !entry.dbusActivatable)) {
        return std::nullopt;
    }
    if (entry.localisedName.empty()) {
        entry.localisedName = entry.name;
    }
    entry.localisedName = fitToBeShown(entry.localisedName);
    entry.icon = keys.localised(G_KEY_FILE_DESKTOP_KEY_ICON);
    entry.startupWmClass = keys.text(G_KEY_FILE_DESKTOP_KEY_STARTUP_WM_CLASS);
    entry.sandbox = keys.text("X-Flatpak");
    if (entry.sandbox.empty()) {
        entry.sandbox = keys.text("X-SnapInstanceName");
    }
    entry.categories = keys.list(G_KEY_FILE_DESKTOP_KEY_CATEGORIES);
    entry.categories.resize(std::min(entry.categories.size(), mostCategories));
    entry.terminal = keys.flag(G_KEY_FILE_DESKTOP_KEY_TERMINAL);
    entry.noDisplay = keys.flag(G_KEY_FILE_DESKTOP_KEY_NO_DISPLAY) || !isShown(keys, currentDesktops);
    const auto tryExec = keys.text(G_KEY_FILE_DESKTOP_KEY_TRY_EXEC);
    entry.tryExecMissing = !tryExec.empty() && !isInstalled(tryExec);
    readCommand(entry, command);
    return entry;
}

} // namespace quillary
