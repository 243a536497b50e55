#include "app/DisplayName.h"

#include "platform/FileFacts.h"

#include <string_view>

namespace quillary {

std::string displayName(const FileFacts& files, const std::string& path) {
    constexpr std::string_view suffix = ".app";
    std::string name = files.displayName(path);
    if (name.ends_with(suffix)) {
        name.resize(name.size() - suffix.size());
    }
    return name;
}

} // namespace quillary
