#include "platform/linux/LinuxFolders.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

#include <pwd.h>
#include <unistd.h>

namespace quillary::LinuxFolders {

namespace {

namespace fs = std::filesystem;

std::string_view variable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

fs::path folder(const char* name, const char* belowHome) {
    const fs::path configured(variable(name));
    return configured.is_absolute() ? configured : home() / belowHome;
}

std::vector<fs::path> folders(const char* name, std::string_view otherwise) {
    auto list = variable(name);
    if (list.empty()) {
        list = otherwise;
    }
    std::vector<fs::path> result;
    while (!list.empty()) {
        const auto end = std::min(list.find(':'), list.size());
        if (const fs::path part(list.substr(0, end)); part.is_absolute()) {
            result.push_back(part);
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return result;
}

fs::path homeInUserDatabase() {
    std::array<char, 4096> buffer{};
    passwd entry{};
    passwd* found = nullptr;
    const bool known =
        ::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr;
    return known && entry.pw_dir != nullptr ? fs::path(entry.pw_dir) : fs::path("/");
}

} // namespace

fs::path home() {
    fs::path configured(variable("HOME"));
    return configured.is_absolute() ? configured : homeInUserDatabase();
}

fs::path configuration() {
    return folder("XDG_CONFIG_HOME", ".config");
}

fs::path data() {
    return folder("XDG_DATA_HOME", ".local/share");
}

std::vector<fs::path> systemConfiguration() {
    return folders("XDG_CONFIG_DIRS", "/etc/xdg");
}

std::vector<fs::path> systemData() {
    return folders("XDG_DATA_DIRS", "/usr/local/share:/usr/share");
}

fs::path ownConfiguration() {
    return configuration() / "Quillary";
}

} // namespace quillary::LinuxFolders
