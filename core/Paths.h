#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quillary {

/// The part after the last '/'; all of a path without one, empty for a path that ends in one.
[[nodiscard]] std::string_view baseName(std::string_view path);

/// The path without the slashes at its end; of a path of slashes alone one is left.
[[nodiscard]] std::string withoutTrailingSlashes(std::string path);

/// Whether a folder, or a link to one, is at the path.
[[nodiscard]] bool isFolder(const std::filesystem::path& path);

} // namespace quillary
