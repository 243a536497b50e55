#include "platform/linux/memory/ApplicationOwners.h"

#include "platform/linux/memory/ControlGroupPlace.h"
#include "platform/linux/windows/UnitName.h"

#include <algorithm>
#include <string_view>

namespace quillary {

namespace {

constexpr int longestChain = 64;
constexpr int deepestFolder = 16;
// Stands for all groups. The paths of real groups begin with a slash.
const std::string anyGroup = "*";

// The application that the innermost unit of the group's path names. Slices that are made for one application
// are named like services.
UnitApplication unitOf(std::string_view group) {
    constexpr std::string_view slice = ".slice";
    while (!group.empty()) {
        const auto slash = group.rfind('/');
        const auto part = group.substr(slash == std::string_view::npos ? 0 : slash + 1);
        auto unit =
            part.ends_with(slice)
                ? unitApplication(std::string(part.substr(0, part.size() - slice.size())) + ".service")
                : unitApplication(part);
        if (!unit.id.empty() || slash == std::string_view::npos) {
            return unit;
        }
        group = group.substr(0, slash);
    }
    return {};
}

} // namespace

ApplicationOwners::ApplicationOwners(std::vector<Process> processes, std::int32_t ownPid, EntryPaths& paths,
                                     ParentOf parentOfOthers, NamespacesOf namespacesOf)
    : m_processes(std::move(processes)),
      m_ownPid(ownPid),
      m_paths(paths),
      m_parentOfOthers(std::move(parentOfOthers)),
      m_namespacesOf(std::move(namespacesOf)) {
    for (std::size_t place = 0; place < m_processes.size(); ++place) {
        m_places.emplace(m_processes[place].pid, place);
    }
    if (const auto* own = find(ownPid)) {
        m_ownGroup = own->traits->group;
        m_ownSandbox = own->traits->sandbox;
    }
    for (const auto& process : m_processes) {
        learn(process);
    }
}

void ApplicationOwners::learn(const Process& process) {
    if (process.pid == m_ownPid) {
        return;
    }
    const auto& traits = *process.traits;
    if (!process.shown.empty()) {
        m_shown[traits.group].insert(process.shown);
    }
    // The folders inside a sandbox are the same for every application.
    const auto owner =
        traits.folder.empty() || !traits.sandbox.empty() ? std::string() : ofWindowsOrLaunch(process);
    if (owner.empty()) {
        return;
    }
    for (const auto& group : {traits.group, anyGroup}) {
        auto& known = m_folders[{group, traits.folder}];
        if (known.pids.empty()) {
            known.application = owner;
        } else if (known.application != owner) {
            known.application.clear();
        }
        known.pids.push_back(process.pid);
    }
}

const ApplicationOwners::Process* ApplicationOwners::find(std::int32_t pid) const {
    const auto place = m_places.find(pid);
    return place == m_places.end() ? nullptr : &m_processes[place->second];
}

std::optional<std::int32_t> ApplicationOwners::parentOf(std::int32_t pid) {
    if (const auto* process = find(pid)) {
        return process->parent;
    }
    const auto [place, isNew] = m_otherParents.try_emplace(pid);
    if (isNew) {
        place->second = m_parentOfOthers(pid);
    }
    return place->second;
}

std::string ApplicationOwners::ownerOf(std::int32_t pid) {
    const auto* process = find(pid);
    if (process == nullptr || pid == m_ownPid) {
        return {};
    }
    auto owner = nearest(*process, Reach::sameGroup);
    if (owner.empty()) {
        owner = byFolderInGroup(*process);
    }
    if (owner.empty()) {
        owner = byGroup(*process);
    }
    if (owner.empty()) {
        owner = nearest(*process, Reach::anyGroup);
    }
    return owner.empty() ? byFolderAnywhere(*process) : owner;
}

std::string ApplicationOwners::ofWindowsOrLaunch(const Process& process) {
    return process.shown.empty() ? m_paths.byPath(process.traits->launchedEntry) : process.shown;
}

std::string ApplicationOwners::ofSandbox(const Process& process) {
    const auto& traits = *process.traits;
    const bool isInherited = traits.group == m_ownGroup && traits.sandbox == m_ownSandbox;
    return isInherited ? std::string() : m_paths.bySandbox(traits.sandbox);
}

std::string ApplicationOwners::nearest(const Process& process, Reach reach) {
    // The nearest sandbox on the way and its application.
    std::string sandbox;
    std::string owner;
    auto pid = process.pid;
    for (int step = 0; step < longestChain && pid > 1 && pid != m_ownPid; ++step) {
        // Of other users' processes, such as the helpers of sandboxes, only the parent matters.
        if (const auto* ancestor = find(pid)) {
            const auto& traits = *ancestor->traits;
            const bool isBeyond = reach == Reach::sameGroup && traits.group != process.traits->group;
            if (isBeyond || (!owner.empty() && traits.sandbox != sandbox)) {
                break;
            }
            if (auto known = ofWindowsOrLaunch(*ancestor); !known.empty()) {
                return known;
            }
            if (owner.empty()) {
                sandbox = traits.sandbox;
                owner = ofSandbox(*ancestor);
            }
        }
        pid = parentOf(pid).value_or(0);
    }
    return owner;
}

const ApplicationOwners::FolderOwner* ApplicationOwners::folderOwner(const Process& process,
                                                                     const std::string& group) const {
    if (!process.traits->sandbox.empty()) {
        return nullptr;
    }
    std::string folder = process.traits->folder;
    for (int level = 0; level < deepestFolder && !folder.empty(); ++level) {
        if (const auto place = m_folders.find({group, folder}); place != m_folders.end()) {
            return &place->second;
        }
        folder.resize(folder.rfind('/'));
    }
    return nullptr;
}

std::string ApplicationOwners::byFolderInGroup(const Process& process) const {
    const auto* owner = folderOwner(process, process.traits->group);
    return owner == nullptr ? std::string() : owner->application;
}

std::string ApplicationOwners::byFolderAnywhere(const Process& process) {
    const auto* owner = folderOwner(process, anyGroup);
    if (owner == nullptr || owner->application.empty()) {
        return {};
    }
    const bool isOwned =
        std::ranges::any_of(owner->pids, [&](std::int32_t pid) { return isBeside(process, *find(pid)); });
    return isOwned ? owner->application : std::string();
}

bool ApplicationOwners::isBeside(const Process& process, const Process& other) {
    const auto place = controlGroupPlace(process.traits->group);
    const auto otherPlace = controlGroupPlace(other.traits->group);
    if (place.container != otherPlace.container) {
        return false;
    }
    // What this program started stays in its group until it is moved to a scope.
    if (process.traits->group != m_ownGroup) {
        if (!place.service.empty() && place.service != otherPlace.service) {
            return false;
        }
        const auto session =
            otherPlace.session.empty() ? controlGroupPlace(m_ownGroup).session : otherPlace.session;
        const bool isKnown = !otherPlace.session.empty() || !m_ownGroup.empty();
        if (!place.session.empty() && isKnown && place.session != session) {
            return false;
        }
    }
    const auto differ = [](const std::string& one, const std::string& another) {
        return !one.empty() && !another.empty() && one != another;
    };
    const auto& spaces = namespacesOf(process.pid);
    const auto& otherSpaces = namespacesOf(other.pid);
    return !differ(spaces.pid, otherSpaces.pid) && !differ(spaces.mount, otherSpaces.mount);
}

const ProcessNamespaces& ApplicationOwners::namespacesOf(std::int32_t pid) {
    const auto [place, isNew] = m_namespaces.try_emplace(pid);
    if (isNew) {
        place->second = m_namespacesOf(pid);
    }
    return place->second;
}

std::string ApplicationOwners::byGroup(const Process& process) {
    const auto& group = process.traits->group;
    const auto unit = group == m_ownGroup ? UnitApplication() : unitOf(group);
    if (unit.id.empty()) {
        return {};
    }
    auto named = unit.sandboxed ? m_paths.bySandbox(unit.id) : m_paths.byId(unit.id);
    const auto shown = m_shown.find(group);
    const bool isOther =
        shown != m_shown.end() && shown->second.size() == 1 && !shown->second.contains(named);
    return isOther ? *shown->second.begin() : named;
}

} // namespace quillary
