#pragma once

#include "platform/Menu.h"

#include <functional>
#include <memory>

namespace quillary {

class DockModel;
class Platform;

/// The context menu of a dock as it is now: what can be done with the item under the pointer, if there is
/// one, then the dock's options and the settings. Its entries do nothing once the model has gone, except for
/// the last, which calls `showSettings`.
[[nodiscard]] Menu dockMenu(const std::shared_ptr<DockModel>& model, Platform& platform,
                            std::function<void()> showSettings);

} // namespace quillary
