#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace quillary::test {

/// A process as /proc shows it. Figures in KiB.
struct ProcEntry {
    std::int32_t pid = 0;
    std::int32_t parent = 1;
    std::uint64_t start = 100;
    std::string name = "program";
    std::string executable = {};
    std::string group = "/user.slice/session-1.scope";
    /// "NAME=value" one behind another, each ended by a NUL.
    std::string environment = {};
    /// Targets of the links in "ns"; without one the link is absent.
    std::string pidNamespace = {};
    std::string mountNamespace = {};
    std::uint64_t resident = 100;
    std::uint64_t anonymous = 0;
    std::uint64_t shared = 0;
    std::uint64_t swapped = 0;
    /// What smaps_rollup says; absent when it may not be read.
    struct Exact {
        std::uint64_t anonymous = 0;
        std::uint64_t lazilyFreed = 0;
        std::uint64_t shared = 0;
        std::uint64_t swapped = 0;
    };
    std::optional<Exact> exact = {};
};

/// A made-up process file system, in a temporary folder that is gone with this object.
class ProcTree {
public:
    ProcTree();
    ~ProcTree();
    ProcTree(const ProcTree&) = delete;
    ProcTree& operator=(const ProcTree&) = delete;

    /// The folder in which "proc" stands.
    [[nodiscard]] const std::filesystem::path& root() const { return m_folder; }
    [[nodiscard]] std::filesystem::path proc() const { return m_folder / "proc"; }
    [[nodiscard]] std::filesystem::path of(std::int32_t pid) const { return proc() / std::to_string(pid); }

    /// Writes a process, in place of the one that had its id.
    void put(const ProcEntry& process) const;
    void remove(std::int32_t pid) const;

private:
    std::filesystem::path m_folder;
};

/// The variables that GIO gives to what it starts for an entry.
[[nodiscard]] std::string launchVariables(const std::string& entry, std::int32_t pid);

} // namespace quillary::test
