#include "core/FileUrl.h"
#include "core/SystemDock.h"
#include "core/Utf8.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string_view>

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

void requirePath(std::string_view path) {
    require(path.starts_with('/'));
    require(path.find('\0') == std::string_view::npos);
    require(quillary::isValidUtf8(path));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> paths = quillary::SystemDock::pathsIn(bytes);
    require(!paths.empty() && paths.front() == quillary::SystemDock::finder);
    require(std::set(paths.begin(), paths.end()).size() == paths.size());
    for (const std::string& path : paths) {
        requirePath(path);
    }
    if (const std::optional<std::string> path = quillary::pathOfFileUrl(bytes)) {
        requirePath(*path);
    }
    return 0;
}
