#pragma once

#include "core/DockPrefs.h"

#include <string>
#include <vector>

namespace quillary {

/// The preferences of the desktop's own dock. Where the desktop has none to speak of, `read` gives absent
/// values and the writing operations do nothing.
class SystemDockPreferences {
public:
    virtual ~SystemDockPreferences() = default;

    /// The two values as they are now; values of another type count as absent.
    [[nodiscard]] virtual DockPrefs read() const = 0;
    /// Sets both values; an absent one removes its key.
    virtual void write(const DockPrefs& prefs) = 0;
    /// Flushes what was written, so that the desktop's dock can read it.
    virtual void synchronise() = 0;
    /// Restarts the desktop's dock and waits until the old one has ended. A failure is ignored.
    virtual void restart() = 0;

    /// The absolute paths pinned to the desktop's own dock, the file manager first, without repeats. Never
    /// empty on a desktop that has a file manager.
    [[nodiscard]] virtual std::vector<std::string> pinnedItems() const = 0;
};

} // namespace quillary
