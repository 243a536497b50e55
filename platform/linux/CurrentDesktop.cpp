#include "platform/linux/CurrentDesktop.h"

#include <algorithm>
#include <cstdlib>

namespace quillary {

CurrentDesktop::CurrentDesktop(std::string_view names) {
    while (!names.empty()) {
        const auto end = std::min(names.find(':'), names.size());
        if (end > 0) {
            m_names.emplace_back(names.substr(0, end));
        }
        names.remove_prefix(std::min(end + 1, names.size()));
    }
}

CurrentDesktop CurrentDesktop::ofSession() {
    const char* names = std::getenv("XDG_CURRENT_DESKTOP");
    return CurrentDesktop(names != nullptr ? names : "");
}

bool CurrentDesktop::is(std::string_view name) const {
    return std::ranges::find(m_names, name) != m_names.end();
}

} // namespace quillary
