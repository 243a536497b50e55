#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace quillary {

/// The whole content of the regular file at `path` (symbolic links are followed). Nothing when it cannot be
/// read, is no regular file or holds more than `limit` bytes. Never waits on a pipe or a device.
[[nodiscard]] std::optional<std::string> readBoundedFile(const std::filesystem::path& path,
                                                         std::size_t limit);

} // namespace quillary
