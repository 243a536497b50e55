#pragma once

#include "platform/linux/entries/DesktopEntry.h"
#include "platform/linux/entries/EntryIndex.h"
#include "platform/linux/memory/DesktopNow.h"
#include "platform/linux/windows/WindowApplications.h"

#include <map>
#include <string>

namespace quillary {

class WindowSource;
class Workspace;

/// Tells which process shows windows of which running application. On the main thread.
class WindowOwners {
public:
    /// Both must outlive this.
    WindowOwners(const WindowSource& windows, const Workspace& workspace);

    [[nodiscard]] DesktopNow now();

private:
    using Entries = std::map<std::string, DesktopEntry>;

    void follow(const Workspace& workspace);

    const WindowSource& m_windows;
    const Workspace& m_workspace;
    // By path: of the running applications alone. Each window of one of them finds the same entry among these
    // as it does among all.
    Entries m_entries;
    EntryIndex m_index;
    WindowApplications m_applications;
};

} // namespace quillary
