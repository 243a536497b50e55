#pragma once

#include <filesystem>
#include <vector>

/// The folders of the user and of the system (XDG Base Directory standard). Paths in the variables must
/// be absolute: a relative one counts as not set. The environment is read at each call, and nothing here
/// looks at the file system, so a folder need not exist.
namespace quillary::LinuxFolders {

/// HOME, else the folder in the user database.
[[nodiscard]] std::filesystem::path home();
/// XDG_CONFIG_HOME, else ~/.config.
[[nodiscard]] std::filesystem::path configuration();
/// XDG_DATA_HOME, else ~/.local/share.
[[nodiscard]] std::filesystem::path data();
/// The absolute paths of XDG_CONFIG_DIRS, the most important first, else /etc/xdg.
[[nodiscard]] std::vector<std::filesystem::path> systemConfiguration();
/// The absolute paths of XDG_DATA_DIRS, the most important first, else /usr/local/share and /usr/share.
[[nodiscard]] std::vector<std::filesystem::path> systemData();

/// Where this program keeps its files: "Quillary" in `configuration`.
[[nodiscard]] std::filesystem::path ownConfiguration();

} // namespace quillary::LinuxFolders
