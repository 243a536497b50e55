#pragma once

#include "platform/Menu.h"

#include <string>
#include <vector>

namespace quillary::test {

/// A menu as lines: "-" for a separator, "✓ " before what is checked, "(…)" around what cannot be chosen, a
/// submenu's title followed by " >" and its lines indented by two.
[[nodiscard]] inline std::vector<std::string> lines(const Menu& menu, const std::string& indent = {}) {
    std::vector<std::string> result;
    for (const ClosureMenuItem& item : menu) {
        if (item.kind == ClosureMenuItem::Kind::separator) {
            result.push_back(indent + "-");
            continue;
        }
        std::string line = item.enabled ? item.title : "(" + item.title + ")";
        if (item.checked) {
            line.insert(0, "✓ ");
        }
        if (item.keyEquivalent != 0) {
            line += std::string(" [") + item.keyEquivalent + "]";
        }
        const bool submenu = item.kind == ClosureMenuItem::Kind::submenu;
        result.push_back(indent + line + (submenu ? " >" : ""));
        for (auto& inner : lines(item.items, indent + "  ")) {
            result.push_back(std::move(inner));
        }
    }
    return result;
}

} // namespace quillary::test
