#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace quillary::ProcListLinux {

/// The processes of the process file system at `root`: its entries whose names are decimal numbers from 1 to
/// 2³¹ − 1. Empty when it cannot be read. With the mount option hidepid they are those of the own user alone.
[[nodiscard]] std::vector<std::int32_t> pids(const std::filesystem::path& root);

} // namespace quillary::ProcListLinux
