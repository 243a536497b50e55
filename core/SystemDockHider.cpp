#include "core/SystemDockHider.h"

namespace quillary::SystemDockHider {

Plan plan(bool hide, const DockPrefs& current, const std::optional<DockPrefs>& saved) {
    const bool isHidden = current == DockPrefs::hidden;
    if (hide) {
        return isHidden ? Plan{.write = std::nullopt, .saved = saved}
                        : Plan{.write = DockPrefs::hidden, .saved = current};
    }
    // With nothing remembered the keys are removed, which leaves the system's default.
    return {.write = isHidden ? std::optional(saved.value_or(DockPrefs{})) : std::nullopt,
            .saved = std::nullopt};
}

} // namespace quillary::SystemDockHider
