#pragma once

#include "core/SystemDockHider.h"
#include "platform/linux/systemdock/DesktopDock.h"

#include <optional>

namespace quillary::test {

/// What one run of the program does with the desktop's dock: reads it, plans, and carries the plan out.
class HiderRun {
public:
    enum class Wanted { hidden, shown };

    explicit HiderRun(DesktopDock& dock, std::optional<DockPrefs> remembered = {})
        : m_dock(dock), m_remembered(remembered) {}

    /// Returns what was written; absent when nothing was.
    std::optional<DockPrefs> apply(Wanted wanted) {
        const auto plan = SystemDockHider::plan(wanted == Wanted::hidden, m_dock.read(), m_remembered);
        m_remembered = plan.saved;
        if (plan.write) {
            m_dock.write(*plan.write);
            m_dock.synchronise();
        }
        return plan.write;
    }
    std::optional<DockPrefs> hide() { return apply(Wanted::hidden); }
    std::optional<DockPrefs> show() { return apply(Wanted::shown); }
    [[nodiscard]] const std::optional<DockPrefs>& remembered() const { return m_remembered; }

private:
    DesktopDock& m_dock;
    std::optional<DockPrefs> m_remembered;
};

inline constexpr std::optional<DockPrefs> nothing;
/// The state that counts as hidden, in literal values.
inline const DockPrefs away{true, 1000.0};

} // namespace quillary::test
