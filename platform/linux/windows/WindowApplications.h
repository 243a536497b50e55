#pragma once

#include "platform/linux/entries/EntryIndex.h"
#include "platform/linux/windows/ProcessFacts.h"
#include "platform/linux/windows/WindowInfo.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace quillary {

/// One desktop entry with all the windows it has open.
struct WindowApplication {
    /// Never given to another application, nor to the same one after it ended.
    std::uint64_t handle = 0;
    /// Path and id of the desktop entry.
    std::string path;
    std::string id;
    /// Its windows, dialogs included, in the order in which they were shown.
    std::vector<std::uint64_t> windows;

    bool operator==(const WindowApplication&) const = default;
};

/// Groups windows by desktop entry, and remembers the entry that each window was matched to.
class WindowApplications {
public:
    explicit WindowApplications(ProcessReader processes = ProcessReader());

    /// Updates the list to the windows that exist now. An application runs while it has a normal window.
    /// Applications keep the order in which they started; those that are new in one update are in the order
    /// of their first normal windows. A dialog belongs to its parent's application. A process is read only
    /// when its window is seen for the first time or changed a property.
    void update(const std::vector<WindowInfo>& windows, const EntryIndex& entries);
    /// Forgets the entries of all windows, since the installed entries changed.
    void forgetMatches();

    [[nodiscard]] const std::vector<WindowApplication>& list() const { return m_applications; }
    /// The application that the window belongs to; null when it has none.
    [[nodiscard]] const WindowApplication* owner(std::uint64_t window) const;

private:
    struct Match {
        WindowInfo window;
        // Path and id of the entry; empty when there is none.
        std::string path;
        std::string id;
        bool current = false;
    };

    void matchWindows(const std::vector<WindowInfo>& windows, const EntryIndex& entries);
    [[nodiscard]] const Match& matchOf(const WindowInfo& window) const;
    [[nodiscard]] std::vector<WindowApplication> group(const std::vector<WindowInfo>& windows) const;

    ProcessReader m_processes;
    std::unordered_map<std::uint64_t, Match> m_matches;
    std::vector<WindowApplication> m_applications;
    std::uint64_t m_lastHandle = 0;
};

} // namespace quillary
