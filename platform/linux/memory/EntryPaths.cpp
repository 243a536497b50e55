#include "platform/linux/memory/EntryPaths.h"

#include "core/AsciiText.h"
#include "core/Paths.h"
#include "platform/linux/entries/DesktopEntry.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace quillary {

namespace {

constexpr std::size_t longestFileName = 255;
constexpr std::size_t longestPath = 4096;

std::string fileOf(std::string_view id) {
    return std::string(id) + (id.ends_with(entrySuffix) ? "" : std::string(entrySuffix));
}

bool isFile(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

} // namespace

EntryPaths::EntryPaths(std::vector<std::filesystem::path> folders,
                       const std::vector<DesktopNow::Entry>& shown)
    : m_folders(std::move(folders)), m_shown(shown) {}

std::string EntryPaths::byId(std::string_view id) {
    const auto file = fileOf(id);
    if (id.empty() || file.size() > longestFileName ||
        file.find_first_of(std::string_view("/\0", 2)) != file.npos) {
        return {};
    }
    const auto shown = std::ranges::find_if(
        m_shown, [folded = lowered(file)](const auto& entry) { return lowered(fileOf(entry.id)) == folded; });
    return shown != m_shown.end() ? shown->path : installed(file);
}

std::string EntryPaths::installed(const std::string& file) {
    const auto [place, isNew] = m_installed.try_emplace(file);
    if (isNew) {
        const auto folder = std::ranges::find_if(
            m_folders, [&file](const auto& candidate) { return isFile(candidate / file); });
        place->second = folder != m_folders.end() ? (*folder / file).string() : std::string();
    }
    return place->second;
}

std::string EntryPaths::bySandbox(std::string_view name) {
    if (name.empty()) {
        return {};
    }
    const auto shown =
        std::ranges::find_if(m_shown, [name](const auto& entry) { return entry.sandbox == name; });
    if (shown != m_shown.end()) {
        return shown->path;
    }
    auto path = byId(name);
    // snapd names entries "<snap>_<application>.desktop", the main application like the snap.
    return path.empty() ? byId(std::string(name) + "_" + std::string(name)) : path;
}

std::string EntryPaths::byPath(const std::string& path) {
    if (!path.starts_with('/') || !path.ends_with(entrySuffix) || path.size() > longestPath) {
        return {};
    }
    auto known = byId(baseName(path));
    if (!known.empty()) {
        return known;
    }
    return isFile(path) ? path : std::string();
}

} // namespace quillary
