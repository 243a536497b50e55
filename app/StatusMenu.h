#pragma once

#include "platform/Menu.h"

#include <functional>

namespace quillary {

class DockManager;
class Platform;

/// The menu of the status item as it is now: settings (calls `showSettings`), one switch for each screen, the
/// switches of the whole program, and quitting (calls `terminate`). The manager must outlive the menu.
[[nodiscard]] Menu statusMenu(DockManager& manager, Platform& platform, std::function<void()> showSettings,
                              std::function<void()> terminate);

} // namespace quillary
