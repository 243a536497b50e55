#include "platform/linux/entries/DesktopEntries.h"

#include "core/Paths.h"
#include "core/Utf8.h"
#include "platform/Scheduler.h"
#include "platform/linux/CurrentDesktop.h"
#include "platform/linux/LinuxFolders.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <set>
#include <utility>

#include <dirent.h>
#include <sys/stat.h>

namespace quillary {

namespace {

constexpr std::size_t mostFiles = 20000;
constexpr int deepestLevel = 8;
// Package managers write many files: read them once when they have finished.
constexpr double settlingSeconds = 0.5;

// Reads one tree of entries. Their ids are made of the path below its root.
class Walk {
public:
    explicit Walk(InstalledEntries& result)
        : m_result(result), m_desktops(CurrentDesktop::ofSession().names()) {}

    void read(const std::filesystem::path& folder, const std::string& prefix, int level) {
        struct stat status = {};
        if (level > deepestLevel || ::stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) ||
            !m_visited.emplace(status.st_dev, status.st_ino).second) {
            return;
        }
        DIR* stream = ::opendir(folder.c_str());
        if (stream == nullptr) {
            return;
        }
        m_result.folders.push_back(folder);
        std::vector<std::string> files;
        std::vector<std::string> subfolders;
        while (const dirent* item = ::readdir(stream)) {
            const std::string name = static_cast<const char*>(item->d_name);
            if (name.starts_with('.') || ++m_count > mostFiles || !isValidUtf8(name)) {
                continue;
            }
            if (name.ends_with(entrySuffix) && item->d_type != DT_DIR) {
                files.push_back(name);
            } else if (item->d_type == DT_DIR || item->d_type == DT_LNK || item->d_type == DT_UNKNOWN) {
                subfolders.push_back(name);
            }
        }
        ::closedir(stream);
        // Folders list their files in no defined order.
        std::ranges::sort(files);
        std::ranges::sort(subfolders);
        for (const auto& name : files) {
            if (auto entry = readDesktopEntry((folder / name).string(), prefix + name, m_desktops)) {
                m_result.entries.push_back(std::move(*entry));
            }
        }
        for (const auto& name : subfolders) {
            read(folder / name, prefix + name + "-", level + 1);
        }
    }

private:
    InstalledEntries& m_result;
    std::vector<std::string> m_desktops;
    std::set<std::pair<dev_t, ino_t>> m_visited;
    std::size_t m_count = 0;
};

} // namespace

std::vector<std::filesystem::path> applicationFolders() {
    std::vector<std::filesystem::path> folders{LinuxFolders::data() / "applications"};
    for (const auto& folder : LinuxFolders::systemData()) {
        const auto path = (folder / "applications").lexically_normal();
        if (std::ranges::find(folders, path) == folders.end()) {
            folders.push_back(path);
        }
    }
    return folders;
}

std::filesystem::path ancestorToWatch(const std::filesystem::path& missing) {
    const auto parent = missing.parent_path();
    for (const auto& folder : {parent, parent.parent_path()}) {
        std::error_code error;
        if (isFolder(folder)) {
            const bool tooMuch = !folder.has_relative_path() ||
                                 std::filesystem::equivalent(folder, LinuxFolders::home(), error) ||
                                 std::filesystem::equivalent(folder, "/", error);
            return tooMuch ? std::filesystem::path() : folder;
        }
    }
    return {};
}

InstalledEntries readInstalledEntries(const std::vector<std::filesystem::path>& folders) {
    InstalledEntries result;
    Walk walk(result);
    for (const auto& folder : folders) {
        walk.read(folder, {}, 0);
    }
    return result;
}

DesktopEntries::DesktopEntries(Scheduler& scheduler) : m_scheduler(scheduler), m_roots(applicationFolders()) {
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &DesktopEntries::folderChanged);
}

DesktopEntries::~DesktopEntries() = default;

const EntryIndex& DesktopEntries::index() const {
    if (!m_current) {
        m_missing.clear();
        std::ranges::copy_if(m_roots, std::back_inserter(m_missing), std::not_fn(isFolder));
        auto installed = readInstalledEntries(m_roots);
        m_read.clear();
        for (const auto& folder : installed.folders) {
            m_read.append(QString::fromStdString(folder.string()));
        }
        watch();
        m_current.emplace(std::move(installed.entries));
    }
    return *m_current;
}

void DesktopEntries::watch() const {
    QStringList paths = m_read;
    for (const auto& root : m_missing) {
        const auto ancestor = QString::fromStdString(ancestorToWatch(root).string());
        if (!ancestor.isEmpty()) {
            paths.append(ancestor);
        }
    }
    paths.removeDuplicates();
    const auto watched = m_watcher.directories();
    QStringList dropped;
    std::ranges::copy_if(watched, std::back_inserter(dropped),
                         [&paths](const QString& path) { return !paths.contains(path); });
    if (!dropped.isEmpty()) {
        m_watcher.removePaths(dropped);
    }
    if (!paths.isEmpty()) {
        m_watcher.addPaths(paths);
    }
}

bool DesktopEntries::missingRootAppeared() const {
    return std::ranges::any_of(m_missing, isFolder);
}

void DesktopEntries::folderChanged(const QString& folder) {
    if (!m_read.contains(folder)) {
        // Watching comes first, as it may now reach a folder closer to the missing one: what appears between
        // the two steps is then noticed.
        watch();
        if (!missingRootAppeared()) {
            return;
        }
    }
    m_reload = m_scheduler.after(settlingSeconds, [this] {
        m_current.reset();
        Q_EMIT changed();
    });
}

} // namespace quillary
