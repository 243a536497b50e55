#pragma once

#include "core/MemoryStats.h"

#include <cstdint>

/// Reads the machine's memory figures from Darwin's kernel. Any thread may call it. Nothing fails: a figure
/// that the system does not give is 0, a pressure `normal`.
namespace quillary::MemoryReader {

[[nodiscard]] MemoryStats read();

/// Memory in use, bytes; see `MemoryStats::usedBytes`.
[[nodiscard]] std::uint64_t used();

} // namespace quillary::MemoryReader
