#include "platform/Menu.h"

#include <utility>

namespace quillary {

ClosureMenuItem::ClosureMenuItem(std::string text, std::function<void()> action)
    : title(std::move(text)), m_handler(std::move(action)) {}

ClosureMenuItem::ClosureMenuItem(std::string text, bool isChecked, std::function<void()> action)
    : title(std::move(text)), checked(isChecked), m_handler(std::move(action)) {}

ClosureMenuItem ClosureMenuItem::separator() {
    ClosureMenuItem item({}, nullptr);
    item.kind = Kind::separator;
    return item;
}

ClosureMenuItem ClosureMenuItem::submenu(std::string title, Menu items) {
    ClosureMenuItem item(std::move(title), nullptr);
    item.kind = Kind::submenu;
    item.items = std::move(items);
    return item;
}

void ClosureMenuItem::fire() const {
    if (m_handler) {
        m_handler();
    }
}

} // namespace quillary
