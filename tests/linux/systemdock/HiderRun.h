#pragma once

#include "core/SystemDockHider.h"
#include "platform/linux/systemdock/DesktopDock.h"

#include <optional>

namespace quillary::test {

/// One run of the program as far as the desktop's dock goes: reads, lets the plan decide and does it.
class HiderRun {
public:
    enum class Wanted { hidden, shown };

    explicit HiderRun(DesktopDock& controlled, std::optional<DockPrefs> remembered = {})
        : dock(controlled), saved(remembered) {}

    /// Returns what was written.
    std::optional<DockPrefs> apply(Wanted wanted) {
        const auto plan = SystemDockHider::plan(wanted == Wanted::hidden, dock.read(), saved);
        saved = plan.saved;
        if (plan.write) {
            dock.write(*plan.write);
            dock.synchronise();
        }
        return plan.write;
    }
    std::optional<DockPrefs> hide() { return apply(Wanted::hidden); }
    std::optional<DockPrefs> show() { return apply(Wanted::shown); }
    [[nodiscard]] const std::optional<DockPrefs>& remembered() const { return saved; }

private:
    DesktopDock& dock;
    std::optional<DockPrefs> saved;
};

inline constexpr std::optional<DockPrefs> nothing;
/// The state that counts as hidden, in its literal numbers.
inline const DockPrefs away{true, 1000.0};

} // namespace quillary::test
