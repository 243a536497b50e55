#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quillary {

class ClosureMenuItem;

/// A menu as plain data, from top to bottom. The backend that shows it decides how it looks.
using Menu = std::vector<ClosureMenuItem>;

/// One line of a menu: an entry that runs its handler when chosen, a separator, or a submenu.
class ClosureMenuItem {
public:
    enum class Kind { entry, separator, submenu };

    /// An entry that can be chosen. The title is UTF-8 and shown literally: "&" and "_" mark no mnemonics.
    ClosureMenuItem(std::string text, std::function<void()> action);
    /// The same for a switch or a choice: `isChecked` puts a check mark before the title.
    ClosureMenuItem(std::string text, bool isChecked, std::function<void()> action);
    static ClosureMenuItem separator();
    static ClosureMenuItem submenu(std::string title, Menu items);

    /// Runs the handler; does nothing for a separator or a submenu. Main thread only.
    void fire() const;

    Kind kind = Kind::entry;
    std::string title;
    /// Whether the entry shows a check mark before its title.
    bool checked = false;
    bool enabled = true;
    /// The letter that chooses the entry while the menu is open, together with the system's command key
    /// (Control; Command on macOS). Lower-case ASCII; 0 for none.
    char keyEquivalent = 0;
    /// The entries of a submenu.
    Menu items;

private:
    std::function<void()> m_handler;
};

} // namespace quillary
