#include "app/view/IconCache.h"

#include "platform/FileIcons.h"

namespace quillary {

IconCache::IconCache(const FileIcons& system) : source(system) {}

const QIcon& IconCache::icon(const std::string& path) {
    const auto known = icons.find(path);
    return known != icons.end() ? known->second : icons.emplace(path, source.icon(path)).first->second;
}

} // namespace quillary
