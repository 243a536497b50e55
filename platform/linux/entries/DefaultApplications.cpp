#include "platform/linux/entries/DefaultApplications.h"

#include "platform/linux/glib/Released.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <algorithm>
#include <array>
#include <filesystem>

namespace quillary::DefaultApplications {

namespace {

using Key = EntryIndex::Key;

constexpr std::array settingsIds = {
    "org.gnome.Settings",    "gnome-control-center", "systemsettings", "org.kde.systemsettings",
    "xfce-settings-manager", "cinnamon-settings",    "matecc",         "lxqt-config",
    "lxde-control-center"};

std::string byContentType(const EntryIndex& entries, const char* type) {
    const Released<GAppInfo, g_object_unref> info(g_app_info_get_default_for_type(type, FALSE));
    if (!info || !G_IS_DESKTOP_APP_INFO(info.get())) {
        return {};
    }
    const char* path = g_desktop_app_info_get_filename(reinterpret_cast<GDesktopAppInfo*>(info.get()));
    const auto* entry = entries.find(Key::path, path != nullptr ? path : "");
    return entry != nullptr ? entry->path : std::string();
}

std::string byAlternative(const EntryIndex& entries, const std::filesystem::path& link) {
    std::error_code error;
    const auto target = std::filesystem::read_symlink(link, error);
    if (error) {
        return {};
    }
    auto program = target.filename().string();
    constexpr std::string_view wrapper = ".wrapper";
    if (program.ends_with(wrapper)) {
        program.resize(program.size() - wrapper.size());
    }
    const auto* entry = entries.find(Key::program, program);
    return entry != nullptr && !entry->noDisplay ? entry->path : std::string();
}

} // namespace

std::string fileManager(const EntryIndex& entries) {
    return byContentType(entries, "inode/directory");
}

std::string browser(const EntryIndex& entries) {
    return byContentType(entries, "x-scheme-handler/http");
}

std::string terminal(const EntryIndex& entries, const std::filesystem::path& alternatives) {
    if (auto chosen = byAlternative(entries, alternatives / "x-terminal-emulator"); !chosen.empty()) {
        return chosen;
    }
    const auto& all = entries.entries();
    const auto place = std::ranges::find_if(all, [](const DesktopEntry& entry) {
        return !entry.noDisplay && !entry.tryExecMissing &&
               std::ranges::find(entry.categories, "TerminalEmulator") != entry.categories.end();
    });
    return place == all.end() ? std::string() : place->path;
}

std::string textEditor(const EntryIndex& entries) {
    return byContentType(entries, "text/plain");
}

std::string settings(const EntryIndex& entries) {
    for (const auto* id : settingsIds) {
        const auto* entry = entries.find(Key::id, id);
        if (entry != nullptr && !entry->noDisplay && !entry->tryExecMissing) {
            return entry->path;
        }
    }
    return {};
}

} // namespace quillary::DefaultApplications
