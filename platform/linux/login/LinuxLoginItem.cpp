#include "platform/linux/login/LinuxLoginItem.h"

#include "core/AtomicFile.h"
#include "platform/linux/CurrentDesktop.h"
#include "platform/linux/login/AutostartEntry.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string_view>
#include <system_error>
#include <utility>

namespace quillary {

namespace {

namespace fs = std::filesystem;

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::vector<std::string> parts(const std::string& list) {
    std::vector<std::string> result;
    std::istringstream stream(list);
    for (std::string part; std::getline(stream, part, ':');) {
        if (!part.empty()) {
            result.push_back(part);
        }
    }
    return result;
}

// Relative paths in these variables are invalid and count as absent (XDG Base Directory standard).
fs::path userConfiguration() {
    const fs::path configured(variable("XDG_CONFIG_HOME"));
    return configured.is_absolute() ? configured : fs::path(variable("HOME")) / ".config";
}

bool isThere(const fs::path& file) {
    std::error_code error;
    return fs::exists(fs::symlink_status(file, error));
}

bool starts(const fs::path& entry) {
    return AutostartEntry::starts(entry, CurrentDesktop::ofSession().names());
}

} // namespace

LinuxLoginItem::LinuxLoginItem(Program described) : program(std::move(described)) {}

fs::path LinuxLoginItem::userEntry() const {
    return userConfiguration() / "autostart" / (program.id + ".desktop");
}

std::vector<fs::path> LinuxLoginItem::systemEntries() const {
    const std::string configured = variable("XDG_CONFIG_DIRS");
    std::vector<fs::path> entries;
    for (const std::string& folder : parts(configured.empty() ? "/etc/xdg" : configured)) {
        if (fs::path(folder).is_absolute()) {
            entries.push_back(fs::path(folder) / "autostart" / (program.id + ".desktop"));
        }
    }
    return entries;
}

bool LinuxLoginItem::startedBySystem() const {
    // The first one counts, whatever it says.
    const auto entries = systemEntries();
    const auto first = std::ranges::find_if(entries, isThere);
    return first != entries.end() && starts(*first);
}

LoginItem::Status LinuxLoginItem::status() const {
    const bool started = isThere(userEntry()) ? starts(userEntry()) : startedBySystem();
    return started ? Status::enabled : Status::disabled;
}

std::optional<std::string> LinuxLoginItem::write(const std::string& text) const {
    const fs::path entry = userEntry();
    std::error_code error;
    fs::create_directories(entry.parent_path(), error);
    if (error) {
        return "cannot create " + entry.parent_path().string() + ": " + error.message();
    }
    if (const auto failure = AtomicFile::write(entry, text)) {
        return "cannot write " + entry.string() + ": " + *failure;
    }
    return std::nullopt;
}

std::optional<std::string> LinuxLoginItem::registerItem() {
    const auto text = AutostartEntry::text(program.name, program.id, program.path);
    return text ? write(*text) : "an entry cannot start " + program.path;
}

std::optional<std::string> LinuxLoginItem::unregisterItem() {
    if (startedBySystem()) {
        return write(AutostartEntry::hiddenText(program.name));
    }
    std::error_code error;
    fs::remove(userEntry(), error);
    return error ? std::optional("cannot remove " + userEntry().string() + ": " + error.message())
                 : std::nullopt;
}

} // namespace quillary
