#pragma once

#include <optional>
#include <string>

namespace quillary {

/// What the installed program knows of itself; nothing of it when run from a build folder.
struct BundleInfo {
    /// The version for people, "1.2".
    std::optional<std::string> shortVersion;
    /// The number of the build.
    std::optional<std::string> build;

    bool operator==(const BundleInfo&) const = default;
};

} // namespace quillary
