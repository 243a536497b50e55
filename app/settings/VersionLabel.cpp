#include "app/settings/VersionLabel.h"

#include "platform/BundleInfo.h"

namespace quillary {

std::string versionLabel(const BundleInfo& info) {
    return info.shortVersion.value_or("dev") + " (" + info.build.value_or("0") + ")";
}

} // namespace quillary
