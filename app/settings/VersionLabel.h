#pragma once

#include <string>

namespace quillary {

struct BundleInfo;

/// The version as shown to the user, "1.2 (34)"; "dev" and "0" stand for what is not known.
[[nodiscard]] std::string versionLabel(const BundleInfo& info);

} // namespace quillary
