#pragma once

#include "platform/linux/memory/EntryPaths.h"
#include "platform/linux/memory/ProcessNamespaces.h"
#include "platform/linux/memory/ProcessTraits.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quillary {

/// Decides which application each process belongs to; at most one.
///
/// What decides, in this order:
/// 1. the process itself or its nearest ancestor in the same control group that shows windows of an
///    application, was launched by GIO for an entry, or runs in a flatpak or snap. So renderers belong to
///    their browser, and what runs in a terminal to the terminal, unless it has windows of its own. Children
///    inherit the sandbox, so within one sandbox an ancestor with windows or a launch comes first;
/// 2. the folder of its executable, when an application that was found so runs from there in the same control
///    group: crash handlers give up their parent, but not their folder;
/// 3. its control group, by the names of systemd's units (systemd.io, "Desktop Environment Integration"). Of
///    an application that shows windows in the group under another entry, the windows' entry counts;
/// 4. ancestors in other control groups, as in 1: terminals give each of their tabs a group;
/// 5. the folder of its executable, when one application alone runs from there. The same path may be another
///    installation or another job: the process must be in the same container (by control group, and by PID
///    and mount namespace where both can be read) as one of the application's processes in that folder, in no
///    service but theirs, and in no login session but theirs, or but this program's when they are in none
///    (see `ControlGroupPlace`). What stayed in this program's own group may belong to any application that
///    it started.
///
/// What this program started is not its own, nor that of the program that started this one: no step looks at
/// this program's process, at what is above it, at the name of its control group, or in that group at the
/// sandbox that this program runs in itself.
class ApplicationOwners {
public:
    /// One of the user's processes.
    struct Process {
        std::int32_t pid = 0;
        std::int32_t parent = 0;
        const ProcessTraits* traits = nullptr;
        /// Path of the application that it shows windows of; empty when it shows none.
        std::string shown;
    };
    /// The parent of a process that is not the user's; nothing when it is not known.
    using ParentOf = std::function<std::optional<std::int32_t>(std::int32_t)>;
    /// The namespaces of one of the user's processes. Called for few: where step 5 is about to apply.
    using NamespacesOf = std::function<ProcessNamespaces(std::int32_t)>;

    /// `paths` must outlive this.
    ApplicationOwners(std::vector<Process> processes, std::int32_t ownPid, EntryPaths& paths,
                      ParentOf parentOfOthers, NamespacesOf namespacesOf);

    /// The path of the application that the process belongs to; empty when it belongs to none.
    [[nodiscard]] std::string ownerOf(std::int32_t pid);

private:
    enum class Reach { sameGroup, anyGroup };
    struct FolderOwner {
        // The application that runs from the folder; empty when several do.
        std::string application;
        // Its processes there.
        std::vector<std::int32_t> pids;
    };
    using Folders = std::map<std::pair<std::string, std::string>, FolderOwner>;

    void learn(const Process& process);
    [[nodiscard]] const Process* find(std::int32_t pid) const;
    [[nodiscard]] std::optional<std::int32_t> parentOf(std::int32_t pid);
    [[nodiscard]] std::string ofWindowsOrLaunch(const Process& process);
    [[nodiscard]] std::string ofSandbox(const Process& process);
    [[nodiscard]] std::string nearest(const Process& process, Reach reach);
    [[nodiscard]] const FolderOwner* folderOwner(const Process& process, const std::string& group) const;
    [[nodiscard]] std::string byFolderInGroup(const Process& process) const;
    [[nodiscard]] std::string byFolderAnywhere(const Process& process);
    [[nodiscard]] bool isBeside(const Process& process, const Process& other);
    [[nodiscard]] const ProcessNamespaces& namespacesOf(std::int32_t pid);
    [[nodiscard]] std::string byGroup(const Process& process);

    std::vector<Process> m_processes;
    std::unordered_map<std::int32_t, std::size_t> m_places;
    std::int32_t m_ownPid;
    std::string m_ownGroup;
    std::string m_ownSandbox;
    EntryPaths& m_paths;
    ParentOf m_parentOfOthers;
    std::unordered_map<std::int32_t, std::optional<std::int32_t>> m_otherParents;
    NamespacesOf m_namespacesOf;
    std::unordered_map<std::int32_t, ProcessNamespaces> m_namespaces;
    // By control group and folder.
    Folders m_folders;
    // By control group: the applications that show windows there.
    std::unordered_map<std::string, std::set<std::string>> m_shown;
};

} // namespace quillary
