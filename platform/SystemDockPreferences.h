#pragma once

#include "core/DockPrefs.h"

#include <string>
#include <vector>

namespace quillary {

/// The preferences of the desktop's own dock. On a desktop without one, `read` returns absent values and the
/// writing operations do nothing.
class SystemDockPreferences {
public:
    virtual ~SystemDockPreferences() = default;

    /// The present values; a value of an unexpected type is absent.
    [[nodiscard]] virtual DockPrefs read() const = 0;
    /// Writes both values; an absent one removes its key.
    virtual void write(const DockPrefs& prefs) = 0;
    /// Flushes written values, so that the desktop's dock reads them.
    virtual void synchronise() = 0;
    /// Restarts the desktop's dock and waits until its old process has ended. Failures are ignored.
    virtual void restart() = 0;

    /// The paths that are pinned to the desktop's own dock, absolute and without duplicates, the file manager
    /// first. Not empty on a desktop that has a file manager.
    [[nodiscard]] virtual std::vector<std::string> pinnedItems() const = 0;
};

} // namespace quillary
