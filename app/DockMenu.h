#pragma once

#include "platform/Menu.h"

#include <memory>

namespace quillary {

class DockModel;
class Platform;

/// The context menu of a dock as it is now: what can be done with the item under the pointer, if there is
/// one, then the dock's options. Its entries do nothing once the model has gone.
[[nodiscard]] Menu dockMenu(const std::shared_ptr<DockModel>& model, Platform& platform);

} // namespace quillary
