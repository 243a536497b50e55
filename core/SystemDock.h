#pragma once

#include <plist/plist.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// The items pinned to macOS's own Dock, read from its preference file. Results are absolute paths in UTF-8,
/// without repeats, the Finder first, then applications, then folders and files, each group in the Dock's
/// order.
namespace quillary::SystemDock {

/// The Finder has no tile in the file but always leads the Dock.
inline constexpr std::string_view finder = "/System/Library/CoreServices/Finder.app";

/// The items in the property list (binary or XML) at `file`. Never fails: a file that is missing, unreadable,
/// unreasonably large or deep, or no property list with a dictionary at the top, gives the Finder alone.
[[nodiscard]] std::vector<std::string> load(const std::filesystem::path& file);

/// The same for the bytes of such a file.
[[nodiscard]] std::vector<std::string> pathsIn(std::string_view bytes);

/// The items in an already parsed top-level dictionary, which the caller keeps; anything else gives the
/// Finder alone. Each tile names its item by a plain absolute path, taken as it stands, or by a file URL (RFC
/// 8089, on this host); tiles that do neither are skipped.
[[nodiscard]] std::vector<std::string> paths(plist_t dictionary);

} // namespace quillary::SystemDock
