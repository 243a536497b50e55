#pragma once

#include "platform/linux/entries/EntryIndex.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QStringList>

#include <filesystem>
#include <memory>
#include <optional>

namespace quillary {

class ScheduledTask;
class Scheduler;

/// The folders below which the system keeps desktop entries, the most important first: "applications" in
/// XDG_DATA_HOME, then in each of XDG_DATA_DIRS (XDG Base Directory standard).
[[nodiscard]] std::vector<std::filesystem::path> applicationFolders();

/// What a walk through the application folders finds.
struct InstalledEntries {
    /// In order of precedence; several may have the same id.
    std::vector<DesktopEntry> entries;
    /// Every folder that was read.
    std::vector<std::filesystem::path> folders;
};

/// Reads all entries in the folders and below. Links are followed; each real folder is read once. Reads at
/// most 20,000 files and 8 levels. Shares no state: any thread may call it.
[[nodiscard]] InstalledEntries readInstalledEntries(const std::vector<std::filesystem::path>& folders);

/// The folder to watch while an application folder does not exist: its parent, or the parent's parent while
/// that does not exist either. Empty when neither exists. Never the user's home folder nor the root folder,
/// where too much else changes.
[[nodiscard]] std::filesystem::path ancestorToWatch(const std::filesystem::path& missing);

/// The index of installed applications, read at the first call of `index` and again after the folders
/// changed.
class DesktopEntries : public QObject {
    Q_OBJECT

public:
    explicit DesktopEntries(Scheduler& scheduler);
    ~DesktopEntries() override;

    /// The current index. The reference is valid until `changed` is emitted or `index` is called again.
    [[nodiscard]] const EntryIndex& index() const;

Q_SIGNALS:
    /// Entries were installed, removed or replaced; emitted once for a burst of changes.
    void changed();

private:
    void folderChanged(const QString& folder);
    void watch() const;
    [[nodiscard]] bool missingRootAppeared() const;

    Scheduler& m_scheduler;
    std::vector<std::filesystem::path> m_roots;
    mutable std::optional<EntryIndex> m_current;
    // At the last reading: the folders that were read, and the roots that did not exist.
    mutable QStringList m_read;
    mutable std::vector<std::filesystem::path> m_missing;
    mutable QFileSystemWatcher m_watcher;
    std::unique_ptr<ScheduledTask> m_reload;
};

} // namespace quillary
