#include "platform/linux/memory/WindowOwners.h"

#include "platform/Workspace.h"
#include "platform/linux/windows/WindowSource.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace quillary {

WindowOwners::WindowOwners(const WindowSource& windows, const Workspace& workspace)
    : m_windows(windows), m_workspace(workspace) {}

void WindowOwners::follow(const Workspace& workspace) {
    Entries entries;
    for (const auto& application : workspace.runningApplications()) {
        if (!application.bundlePath || !application.bundleIdentifier) {
            continue;
        }
        const auto& path = *application.bundlePath;
        if (const auto known = m_entries.find(path); known != m_entries.end()) {
            entries.insert(*known);
        } else if (auto entry = readDesktopEntry(path, *application.bundleIdentifier, {})) {
            entries.emplace(path, std::move(*entry));
        }
    }
    const bool isSame =
        std::ranges::equal(entries, m_entries, {}, &Entries::value_type::first, &Entries::value_type::first);
    if (isSame) {
        return;
    }
    m_entries = std::move(entries);
    std::vector<DesktopEntry> list;
    for (const auto& [path, entry] : m_entries) {
        list.push_back(entry);
    }
    m_index = EntryIndex(std::move(list));
    m_applications.forgetMatches();
}

DesktopNow WindowOwners::now() {
    follow(m_workspace);
    const auto windows = m_windows.windows();
    m_applications.update(windows, m_index);
    DesktopNow result;
    for (const auto& [path, entry] : m_entries) {
        result.entries.push_back({.path = path, .id = entry.id, .sandbox = entry.sandbox});
    }
    for (const auto& window : windows) {
        const auto* owner = m_applications.owner(window.id);
        if (owner != nullptr && window.pid > 0) {
            result.windows.push_back({.pid = window.pid, .path = owner->path});
        }
    }
    return result;
}

} // namespace quillary
