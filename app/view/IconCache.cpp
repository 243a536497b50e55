#include "app/view/IconCache.h"

#include "platform/FileIcons.h"

namespace quillary {

IconCache::IconCache(const FileIcons& source) : m_source(source) {}

const QIcon& IconCache::icon(const std::string& path) {
    const auto known = m_icons.find(path);
    return known != m_icons.end() ? known->second : m_icons.emplace(path, m_source.icon(path)).first->second;
}

} // namespace quillary
