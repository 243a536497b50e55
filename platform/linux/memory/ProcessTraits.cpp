#include "platform/linux/memory/ProcessTraits.h"

#include "core/Paths.h"
#include "platform/linux/entries/ProgramName.h"

#include <algorithm>
#include <array>

namespace quillary {

namespace {

// Of the Filesystem Hierarchy Standard, and the roots of sandboxes, where each application is at the same
// place.
constexpr std::array<std::string_view, 27> sharedFolders = {"",
                                                            "/app",
                                                            "/app/lib",
                                                            "/app/libexec",
                                                            "/bin",
                                                            "/lib",
                                                            "/lib64",
                                                            "/newroot",
                                                            "/nix/store",
                                                            "/opt",
                                                            "/sbin",
                                                            "/snap",
                                                            "/tmp",
                                                            "/usr",
                                                            "/usr/games",
                                                            "/usr/lib",
                                                            "/usr/lib64",
                                                            "/usr/libexec",
                                                            "/usr/local",
                                                            "/usr/local/games",
                                                            "/usr/local/lib",
                                                            "/usr/local/libexec",
                                                            "/usr/local/sbin",
                                                            "/usr/local/share",
                                                            "/usr/sbin",
                                                            "/usr/share",
                                                            "/var/tmp"};

// In a home: what xdg-user-dirs and the user's own habit put programs of any origin into.
constexpr std::array<std::string_view, 6> sharedInHomes = {".local",    "Applications", "Desktop",
                                                           "Downloads", "bin",          "opt"};

// Folders of one kind for every user or every machine: a home, those in it where applications are collected,
// "/usr/lib/x86_64-linux-gnu".
bool isSharedByPlace(std::string_view folder) {
    const auto name = baseName(folder);
    const auto parent = folder.substr(0, folder.size() - std::min(folder.size(), name.size() + 1));
    const bool isHome = parent == "/home" || folder == "/root";
    const bool isBelowHome =
        parent == "/root" || (parent.starts_with("/home/") &&
                              parent.find('/', std::string_view("/home/").size()) == std::string_view::npos);
    const bool isOfArchitecture =
        (parent == "/usr/lib" || parent == "/lib") && name.find("-linux-") != std::string_view::npos;
    return isHome || (isBelowHome && std::ranges::find(sharedInHomes, name) != sharedInHomes.end()) ||
           isOfArchitecture;
}

} // namespace

std::string installFolder(std::string_view executable) {
    const auto slash = executable.rfind('/');
    if (slash == std::string_view::npos || !executable.starts_with('/') ||
        isInterpreter(executable.substr(slash + 1))) {
        return {};
    }
    auto folder = executable.substr(0, slash);
    constexpr std::string_view programs = "/bin";
    if (folder.ends_with(programs)) {
        folder.remove_suffix(programs.size());
    }
    const bool isShared = std::ranges::find(sharedFolders, folder) != sharedFolders.end();
    return isShared || isSharedByPlace(folder) ? std::string() : std::string(folder);
}

ProcessTraits traitsOf(const ProcessFacts& facts) {
    return {.folder = installFolder(facts.executable),
            .group = facts.controlGroup,
            .launchedEntry = facts.launchedEntryPid == facts.pid ? facts.launchedEntry : std::string(),
            .sandbox = facts.sandbox};
}

} // namespace quillary
