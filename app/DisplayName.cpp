#include "app/DisplayName.h"

#include "platform/Workspace.h"

#include <string_view>

namespace quillary {

std::string displayName(const Workspace& workspace, const std::string& path) {
    constexpr std::string_view suffix = ".app";
    std::string name = workspace.displayName(path);
    if (name.ends_with(suffix)) {
        name.resize(name.size() - suffix.size());
    }
    return name;
}

} // namespace quillary
