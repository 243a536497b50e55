#pragma once

#include "core/AppUsage.h"

#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace quillary {

/// Samples how much memory each of the user's applications uses, on systems whose applications are bundles
/// (macOS). A plain value: copies may sample on any thread.
struct AppMemorySource {
    explicit AppMemorySource(std::optional<std::string> excludedBundle = {});

    /// One pass over the processes of the user who made this value. By falling size, equal sizes by name;
    /// applications outside of every "Applications" folder are left out. What cannot be read is missing.
    /// Paths and names are the bytes that the kernel reports, which need not be UTF-8.
    [[nodiscard]] std::vector<AppUsage> sample() const;

    /// The path of one bundle that is never reported.
    std::optional<std::string> exclude;

private:
    uid_t ownUID;
};

} // namespace quillary
