#pragma once

#include "platform/Menu.h"

#include <functional>

#import <AppKit/AppKit.h>

/// Converts a Menu to an NSMenu.
namespace quillary::MacMenu {

/// Called with the chosen entry on the main thread.
using Chosen = std::function<void(const ClosureMenuItem&)>;

/// A new menu with these entries.
[[nodiscard]] NSMenu* make(const Menu& items, const Chosen& chosen);
/// Replaces the menu's entries.
void fill(NSMenu* menu, const Menu& items, const Chosen& chosen);

} // namespace quillary::MacMenu
