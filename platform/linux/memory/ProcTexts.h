#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Reads the texts of /proc (proc(5)). Pure; any bytes are allowed. Text that is something else, or has
/// figures that cannot be right, gives nothing.
namespace quillary::ProcTexts {

inline constexpr std::uint64_t bytesPerKibibyte = 1024;
/// An exbibyte: nothing has more, and sums of a few of them fit into 64 bits.
inline constexpr std::uint64_t mostKibibytes = std::uint64_t{1} << 50U;

/// Bytes of the first line "Name:   123 kB"; `name` is given with its colon. Searches on from the start of
/// `text` and moves that start to the number, so that lines are found in one pass when they are
/// searched for in the text's order; when there is no such line, `text` stays as it is. Nothing for more than
/// `mostKibibytes`.
[[nodiscard]] std::optional<std::uint64_t> lineBytes(std::string_view& text, std::string_view name);

/// From /proc/<pid>/stat.
struct Stat {
    /// Name of the program as the kernel keeps it, any bytes, at most 64.
    std::string command;
    std::int32_t parent = 0;
    /// When the process started, in clock ticks since the machine did: the id and this time together
    /// identify a process, since ids are used again.
    std::uint64_t startTime = 0;
    /// Pages in memory, of files too.
    std::uint64_t residentPages = 0;

    bool operator==(const Stat&) const = default;
};

[[nodiscard]] std::optional<Stat> stat(std::string_view text);

/// From /proc/<pid>/status, bytes: RssAnon + RssShmem + VmSwap. Cheap for the kernel, but pages that several
/// processes share count in full in each of them. Nothing for a process without an address space (a thread
/// of the kernel, one that has ended).
[[nodiscard]] std::optional<std::uint64_t> resident(std::string_view status);

/// From /proc/<pid>/smaps_rollup, bytes: Pss_Anon − LazyFree + Pss_Shmem + SwapPss, the physical footprint.
/// Pages that n processes share count for an n-th each. Takes the kernel about 9 ms per GiB. Nothing when the
/// kernel does not split Pss (before 5.9).
[[nodiscard]] std::optional<std::uint64_t> footprint(std::string_view rollup);

} // namespace quillary::ProcTexts
