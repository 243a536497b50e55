#include "app/view/IconCache.h"

#include "platform/Workspace.h"

namespace quillary {

IconCache::IconCache(Workspace& system) : workspace(system) {}

const QIcon& IconCache::icon(const std::string& path) {
    const auto known = icons.find(path);
    return known != icons.end() ? known->second : icons.emplace(path, workspace.icon(path)).first->second;
}

} // namespace quillary
