#pragma once

#include "platform/linux/memory/ProcTexts.h"
#include "platform/linux/memory/ProcessNamespaces.h"
#include "platform/linux/windows/ProcessFacts.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace quillary {

/// The process file system, or a folder that looks like it. Reads are bounded. Figures of a process that has
/// ended, or whose files may not be read, are absent.
class ProcFilesystem {
public:
    explicit ProcFilesystem(std::filesystem::path root = "/proc");

    /// The processes in the system's own order: entries whose names are decimal numbers from 1 to 2³¹ − 1.
    /// Empty when the folder cannot be read. With the mount option hidepid they are those of the own user
    /// alone.
    [[nodiscard]] std::vector<std::int32_t> pids() const;
    /// Effective user of the process. The folder's owner is that for each process, those included that keep
    /// their files from being read.
    [[nodiscard]] std::optional<uid_t> owner(std::int32_t pid) const;
    [[nodiscard]] std::optional<ProcTexts::Stat> stat(std::int32_t pid) const;
    /// Bytes; see `ProcTexts::resident`.
    [[nodiscard]] std::optional<std::uint64_t> resident(std::int32_t pid) const;
    /// Bytes; see `ProcTexts::footprint`. Waits while the process changes its address space.
    [[nodiscard]] std::optional<std::uint64_t> footprint(std::int32_t pid) const;
    /// Two links in the process's "ns" folder; never waits.
    [[nodiscard]] ProcessNamespaces namespaces(std::int32_t pid) const;
    /// Waits like `footprint`.
    [[nodiscard]] ProcessFacts facts(std::int32_t pid) const;

private:
    std::filesystem::path m_root;
    std::string m_prefix;
    ProcessReader m_reader;
};

} // namespace quillary
