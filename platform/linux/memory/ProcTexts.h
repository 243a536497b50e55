#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Reads the texts of /proc (proc(5)). Pure; any bytes may come in. What is no such text, or names figures
/// that cannot be, gives nothing.
namespace quillary::ProcTexts {

/// From /proc/<pid>/stat.
struct Stat {
    /// Name of the program as the kernel keeps it, any bytes, at most 64.
    std::string command;
    std::int32_t parent = 0;
    /// When the process started, in clock ticks since the machine did: with the id it tells a process from
    /// one that has the same id later.
    std::uint64_t startTime = 0;
    /// Pages in memory, of files too.
    std::uint64_t residentPages = 0;

    bool operator==(const Stat&) const = default;
};

[[nodiscard]] std::optional<Stat> stat(std::string_view text);

/// From /proc/<pid>/status, bytes: RssAnon + RssShmem + VmSwap. Cheap to ask for, but pages that several
/// processes share count in each of them. Nothing for a process without memory of its own (a thread of the
/// kernel, one that has ended).
[[nodiscard]] std::optional<std::uint64_t> unsharedSum(std::string_view status);

/// From /proc/<pid>/smaps_rollup, bytes: Pss_Anon − LazyFree + Pss_Shmem + SwapPss, the physical footprint.
/// Pages that n processes share count for an n-th each. Takes the kernel about 9 ms per GiB. Nothing when the
/// kernel does not split Pss (before 5.9).
[[nodiscard]] std::optional<std::uint64_t> footprint(std::string_view rollup);

} // namespace quillary::ProcTexts
