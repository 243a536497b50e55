#pragma once

#include <cstdint>
#include <string>

namespace quillary {

/// One window of a client program, as the window system describes it. Every text is untrusted: valid UTF-8,
/// otherwise anything. Empty texts and 0 mean "not known".
struct WindowInfo {
    std::uint64_t id = 0;
    /// WM_CLASS (ICCCM): class and instance, or the application id where the window system has only that.
    std::string windowClass;
    std::string instance;
    /// The process that owns the window (_NET_WM_PID of EWMH).
    std::int64_t pid = 0;
    /// The desktop entry as toolkits name it: _GTK_APPLICATION_ID, _KDE_NET_WM_DESKTOP_FILE.
    std::string applicationId;
    /// The flatpak id or snap name that the window itself gives.
    std::string sandboxId;
    /// The window that this one is a dialog of (WM_TRANSIENT_FOR); 0 for a window that is no dialog.
    std::uint64_t transientFor = 0;
    /// Whether it is a window for docks and task bars: not a dock, desktop, menu or tooltip, nor marked to be
    /// skipped.
    bool normal = true;

    bool operator==(const WindowInfo&) const = default;
};

} // namespace quillary
