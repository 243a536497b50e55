#pragma once

#include "platform/Menu.h"

#include <functional>

#import <AppKit/AppKit.h>

/// A Menu as the system shows menus.
namespace quillary::MacMenu {

/// What is done with an entry that was chosen; called on the main thread.
using Chosen = std::function<void(const ClosureMenuItem&)>;

[[nodiscard]] NSMenu* make(const Menu& items, const Chosen& chosen);
/// Puts these lines in the place of those that the menu has.
void fill(NSMenu* menu, const Menu& items, const Chosen& chosen);

} // namespace quillary::MacMenu
