#include "core/DockConfig.h"

#include <utility>

namespace quillary {

DockConfig::DockConfig(std::string key, std::string name, std::vector<std::string> pinned)
    : screenKey(std::move(key)), screenName(std::move(name)), items(std::move(pinned)) {}

} // namespace quillary
