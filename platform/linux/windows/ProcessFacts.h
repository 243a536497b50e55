#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace quillary {

/// What /proc shows of a process that helps to find its desktop entry. Every text is untrusted, since the
/// process itself may have set it: valid UTF-8, otherwise anything; empty when not known.
struct ProcessFacts {
    std::int64_t pid = 0;
    /// Path of the executable; empty when it may not be read.
    std::string executable;
    /// The start of the command line.
    std::vector<std::string> arguments;
    /// Flatpak id from the sandbox's own description, or snap name: SNAP_INSTANCE_NAME, when the innermost
    /// unit of the control group is that snap's too. Programs that a snap starts inherit the variable. snapd
    /// names its units `snap.<snap>.<application>-<uuid>.scope` and `snap.<snap>.<application>.service`.
    std::string sandbox;
    /// Path of its control group in the unified hierarchy, else in systemd's own.
    std::string controlGroup;
    /// GIO_LAUNCHED_DESKTOP_FILE and its companion.
    std::string launchedEntry;
    std::int64_t launchedEntryPid = 0;

    bool operator==(const ProcessFacts&) const = default;
};

/// Reads the facts of processes. Reads are bounded. What cannot be read, because the process ended or belongs
/// to another user, stays empty.
class ProcessReader {
public:
    /// `root` is where the process file system is mounted.
    explicit ProcessReader(std::filesystem::path root = "/proc");

    [[nodiscard]] ProcessFacts read(std::int64_t pid) const;

private:
    std::filesystem::path m_root;
};

} // namespace quillary
