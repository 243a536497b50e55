#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace quillary {

/// The first `limit` bytes of a regular file, or all of it when it is shorter; for files of /proc too, whose
/// size is not known beforehand. Absent when it can't be read or is something else (a pipe would block, a
/// device never end).
[[nodiscard]] std::optional<std::string> readFileStart(const std::filesystem::path& path, std::size_t limit);

} // namespace quillary
