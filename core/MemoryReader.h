#pragma once

#include "core/MemoryStats.h"

#include <cstdint>

/// Reads the machine's memory figures. Any thread may; nothing fails: a figure that the system does not tell
/// is 0, its pressure `normal`.
namespace quillary::MemoryReader {

[[nodiscard]] MemoryStats read();

/// Memory in use, bytes; see `MemoryStats::usedBytes`.
[[nodiscard]] std::uint64_t used();

} // namespace quillary::MemoryReader
