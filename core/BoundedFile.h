#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

namespace quillary {

class FileDescriptor;

/// The whole content of the regular file at `path` (symbolic links are followed). Nothing when it cannot be
/// read, is no regular file or holds more than `limit` bytes. Never waits on a pipe or a device.
[[nodiscard]] std::optional<std::string> readBoundedFile(const std::filesystem::path& path,
                                                         std::size_t limit);

/// The first `limit` bytes of a regular file, or all of a shorter one; otherwise as `readBoundedFile`. Files
/// of /proc, whose size is not known before they are read, are regular, too.
[[nodiscard]] std::optional<std::string> readFileStart(const std::filesystem::path& path, std::size_t limit);

/// Fills the buffer from an open file; returns how many bytes there were before its end, or nothing when
/// reading failed. Interrupted reads go on.
[[nodiscard]] std::optional<std::size_t> readInto(std::span<char> buffer, const FileDescriptor& file);

} // namespace quillary
