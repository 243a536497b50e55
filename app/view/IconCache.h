#pragma once

#include <QIcon>

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace quillary {

class FileIcons;

/// The icon of every path that was ever shown; the system is asked once for each. One cache serves all docks.
class IconCache {
public:
    /// The source must outlive the cache.
    explicit IconCache(const FileIcons& source);

    /// Never null: the system's generic icon stands for a path without one.
    [[nodiscard]] const QIcon& icon(const std::string& path);

private:
    const FileIcons& m_source;
    std::map<std::string, QIcon, std::less<>> m_icons;
};

} // namespace quillary
