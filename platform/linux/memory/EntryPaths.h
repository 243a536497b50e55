#pragma once

#include "platform/linux/windows/DesktopNow.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillary {

/// Finds the path by which docks know an application, from the names that processes give. Applications that
/// show windows come before installed ones. Each name is looked up in the file system at most once. All
/// return an empty path when there is no such application.
class EntryPaths {
public:
    /// `folders` hold the installed entries, the most important first.
    EntryPaths(std::vector<std::filesystem::path> folders, const std::vector<DesktopNow::Entry>& shown);

    /// By desktop file id, with or without ".desktop"; of shown applications in any letter case.
    [[nodiscard]] std::string byId(std::string_view id);
    /// By flatpak id or snap name.
    [[nodiscard]] std::string bySandbox(std::string_view name);
    /// By the path of an entry; docks may know another entry of the same id.
    [[nodiscard]] std::string byPath(const std::string& path);

private:
    [[nodiscard]] std::string installed(const std::string& file);

    std::vector<std::filesystem::path> m_folders;
    const std::vector<DesktopNow::Entry>& m_shown;
    std::unordered_map<std::string, std::string> m_installed;
};

} // namespace quillary
