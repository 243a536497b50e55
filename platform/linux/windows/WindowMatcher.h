#pragma once

#include "platform/linux/entries/EntryIndex.h"
#include "platform/linux/windows/ProcessFacts.h"
#include "platform/linux/windows/WindowInfo.h"

namespace quillary {

/// Finds the desktop entry that a window belongs to. Pure: the same window, process and index give the same
/// entry.
///
/// The most telling evidence decides: StartupWMClass (XDG Desktop Entry standard), the desktop ids that the
/// window names, their reverse-DNS tails, the sandbox, the systemd unit, the entry that GIO says it launched,
/// and last the name of the program. Names that many programs share ("java", "python3", "electron") are no
/// evidence.
class WindowMatcher {
public:
    /// The index must outlive the matcher.
    explicit WindowMatcher(const EntryIndex& entries);

    /// The entry, in the index; null when nothing tells. `process` is that of the window's pid, without facts
    /// when it isn't known. Does not look at `transientFor`.
    [[nodiscard]] const DesktopEntry* match(const WindowInfo& window, const ProcessFacts& process) const;

private:
    const EntryIndex& m_entries;
};

} // namespace quillary
