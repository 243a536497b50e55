#include "platform/linux/systemdock/LinuxSystemDockPreferences.h"

#include "core/SystemDock.h"
#include "core/Utf8.h"
#include "platform/linux/CurrentDesktop.h"
#include "platform/linux/entries/DefaultApplications.h"
#include "platform/linux/entries/DesktopEntries.h"
#include "platform/linux/glib/GlibText.h"
#include "platform/linux/systemdock/DesktopDock.h"
#include "platform/linux/systemdock/DesktopFavourites.h"

#include <algorithm>
#include <utility>

#include <glib.h>

namespace quillary {

namespace {

// The absolute path of what a favourite stands for; empty when that isn't installed.
std::string resolved(const std::string& item, const EntryIndex& entries) {
    constexpr std::string_view byId = "applications:";
    if (item == "preferred://browser") {
        return DefaultApplications::browser(entries);
    }
    if (item == "preferred://filemanager") {
        return DefaultApplications::fileManager(entries);
    }
    const auto path = item.starts_with("file:") ? pathOfStoredUri(item) : item;
    if (path.starts_with('/')) {
        std::error_code error;
        return path.ends_with(entrySuffix) && std::filesystem::is_regular_file(path, error) ? path
                                                                                            : std::string();
    }
    const auto* entry =
        entries.find(EntryIndex::Key::id, item.starts_with(byId) ? item.substr(byId.size()) : item);
    return entry != nullptr ? entry->path : std::string();
}

std::vector<std::string> defaults(const EntryIndex& entries) {
    return {DefaultApplications::browser(entries), DefaultApplications::terminal(entries),
            DefaultApplications::textEditor(entries), DefaultApplications::settings(entries)};
}

} // namespace

LinuxSystemDockPreferences::LinuxSystemDockPreferences(const DesktopEntries& entries, SystemLog& log,
                                                       std::filesystem::path stateFolder)
    : m_entries(entries), m_log(log), m_stateFolder(std::move(stateFolder)) {}

LinuxSystemDockPreferences::~LinuxSystemDockPreferences() = default;

DesktopDock* LinuxSystemDockPreferences::dock() const {
    if (!m_isDockLookedFor) {
        m_isDockLookedFor = true;
        m_dock = DesktopDock::of(CurrentDesktop::ofSession(), m_stateFolder, m_log);
    }
    return m_dock.get();
}

DockPrefs LinuxSystemDockPreferences::read() const {
    auto* desktopDock = dock();
    return desktopDock != nullptr ? desktopDock->read() : DockPrefs::hidden;
}

void LinuxSystemDockPreferences::write(const DockPrefs& prefs) {
    if (auto* desktopDock = dock()) {
        desktopDock->write(prefs);
    }
}

void LinuxSystemDockPreferences::synchronise() {
    if (auto* desktopDock = dock()) {
        desktopDock->synchronise();
    }
}

std::vector<std::string> LinuxSystemDockPreferences::pinnedItems() const {
    const auto dockFile = LinuxFolders::home() / "Library/Preferences/com.apple.dock.plist";
    std::error_code error;
    if (std::filesystem::is_regular_file(dockFile, error)) {
        return SystemDock::load(dockFile);
    }
    const auto& entries = m_entries.index();
    const auto favourites =
        DesktopFavourites::ofDesktop(CurrentDesktop::ofSession(), LinuxFolders::configuration());
    std::vector<std::string> paths;
    const auto add = [&paths](std::string path) {
        if (!path.empty() && isValidUtf8(path) && std::ranges::find(paths, path) == paths.end()) {
            paths.push_back(std::move(path));
        }
    };
    add(DefaultApplications::fileManager(entries));
    for (const auto& item : favourites.value_or(std::vector<std::string>())) {
        add(resolved(item, entries));
    }
    if (!favourites) {
        for (auto& path : defaults(entries)) {
            add(std::move(path));
        }
    }
    return paths;
}

} // namespace quillary
