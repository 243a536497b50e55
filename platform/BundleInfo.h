#pragma once

#include <optional>
#include <string>

namespace quillary {

/// The version of the installed program. Both fields are absent when it runs from a build folder.
struct BundleInfo {
    /// The version that users see, such as "1.2".
    std::optional<std::string> shortVersion;
    /// The build number.
    std::optional<std::string> build;

    bool operator==(const BundleInfo&) const = default;
};

} // namespace quillary
