#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quillary {

class ClosureMenuItem;

/// A menu as plain data, from top to bottom: what shows it decides how it looks, tests read it as it is.
using Menu = std::vector<ClosureMenuItem>;

/// One line of a menu: an entry that runs its handler when chosen, a separator, or a submenu.
class ClosureMenuItem {
public:
    enum class Kind { entry, separator, submenu };

    /// An entry that can be chosen. The title is UTF-8 and shown as it stands ("&" and "_" are letters).
    ClosureMenuItem(std::string title, bool checked, std::function<void()> handler);
    static ClosureMenuItem separator();
    static ClosureMenuItem submenu(std::string title, Menu items);

    /// Runs the handler; nothing happens for a separator or a submenu. Main thread.
    void fire() const;

    Kind kind = Kind::entry;
    std::string title;
    /// Whether a check mark stands before the title.
    bool checked = false;
    bool enabled = true;
    /// The letter that, with the system's command key (Control; Command on macOS), chooses the entry while
    /// the menu is open. Lower-case ASCII; 0 for none.
    char keyEquivalent = 0;
    /// The lines of a submenu.
    Menu items;

private:
    std::function<void()> handler;
};

} // namespace quillary
