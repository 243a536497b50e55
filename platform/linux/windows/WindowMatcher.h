#pragma once

#include "platform/linux/entries/EntryIndex.h"
#include "platform/linux/windows/ProcessFacts.h"
#include "platform/linux/windows/WindowInfo.h"

namespace quillary {

/// Finds the desktop entry that a window belongs to. Pure: the same window, process and index give the same
/// entry.
///
/// The strongest evidence decides: StartupWMClass (XDG Desktop Entry standard), the desktop ids that the
/// window names, their reverse-DNS tails, the sandbox, the systemd unit, the entry that GIO says it launched,
/// and last the name of the program. Names that many programs share ("java", "python3", "electron") are no
/// evidence.
class WindowMatcher {
public:
    /// The index must outlive the matcher.
    explicit WindowMatcher(const EntryIndex& entries);

    /// The entry in the index; null when no evidence leads to one. `process` describes the process of the
    /// window's pid and is empty when that is not known. `transientFor` is not evidence.
    [[nodiscard]] const DesktopEntry* match(const WindowInfo& window, const ProcessFacts& process) const;

private:
    const EntryIndex& m_entries;
};

} // namespace quillary
