#pragma once

#include <QIcon>

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace quillary {

class FileIcons;

/// Caches the icon of every path that was ever shown, so that the system loads each once. All docks share one
/// cache.
class IconCache {
public:
    /// The source must outlive the cache.
    explicit IconCache(const FileIcons& source);

    /// Never null: a path without an icon gets the system's generic one.
    [[nodiscard]] const QIcon& icon(const std::string& path);

private:
    const FileIcons& m_source;
    std::map<std::string, QIcon, std::less<>> m_icons;
};

} // namespace quillary
