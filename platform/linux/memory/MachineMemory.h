#pragma once

#include "core/MemoryStats.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// The machine's memory as `MemoryStats` defines it, from Linux's own figures. Only `texts` reads anything; a
/// figure that is missing or cannot be right counts as 0, a pressure as `normal`.
namespace quillary::MachineMemory {

/// Contents of the files that hold the figures; empty when a file is missing.
struct Texts {
    /// /proc/meminfo
    std::string meminfo;
    /// /proc/pressure/memory
    std::string pressure;
    /// /sys/block/zram*/mm_stat
    std::vector<std::string> zramDevices;
};

/// Reads the files, each up to 64 KiB. `root` stands for "/".
[[nodiscard]] Texts texts(const std::filesystem::path& root);

/// Total, swap in use (SwapTotal − SwapFree), memory in use and pressure. `pageSize` in bytes.
[[nodiscard]] MemoryStats stats(const Texts& texts, std::uint64_t pageSize);

/// Memory in use, bytes, by these correspondences (proc(5), the kernel's documentation of /proc/meminfo and
/// of zram):
/// - anonymous: AnonPages + Shmem, which include what was lazily freed;
/// - purgeable: those of them on none of the lists Active(anon), Inactive(anon) and Mlocked — what was lazily
///   freed has moved to the lists of files;
/// - wired: Unevictable + SUnreclaim + KernelStack + PageTables + SecPageTables + Percpu;
/// - compressed: Zswap and the third figure of each zram device.
[[nodiscard]] std::uint64_t usedBytes(const Texts& texts, std::uint64_t pageSize);

/// The pressure by the kernel's pressure stall information (its documentation, "PSI").
///
/// Darwin warns once the compressor has to work for programs to go on, and calls it critical when that no
/// longer suffices. So here: a warning when some process stood still for want of memory during 10 % of the
/// last ten seconds ("some avg10"), which people notice as stutter; critical when all processes with work to
/// do stood still for 10 % ("full avg10"), which they notice as a machine that hangs.
[[nodiscard]] MemoryPressure pressure(std::string_view text);

} // namespace quillary::MachineMemory
