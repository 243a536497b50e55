#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillary {

/// Which processes show windows of which applications at one moment: a small copy for another thread.
struct DesktopNow {
    /// The desktop entry of an application that shows windows.
    struct Entry {
        /// The path that docks know the application by.
        std::string path;
        /// Desktop file id.
        std::string id;
        /// Flatpak id or snap name that the entry was exported with.
        std::string sandbox;
    };
    /// A process that says a window of the application is its own.
    struct Window {
        std::int64_t pid = 0;
        std::string path;
    };

    /// Sorted by path.
    std::vector<Entry> entries;
    /// In the order in which the windows were first shown.
    std::vector<Window> windows;
};

} // namespace quillary
