#pragma once

#include "platform/RunningApplication.h"

#include <cstdint>
#include <vector>

#import <AppKit/AppKit.h>

namespace quillary {

/// Assigns a handle to each running application. Unlike process ids, handles are never reused.
class MacRunningApplications {
public:
    /// The applications in the system's order. Forgets the handles of those that have ended.
    [[nodiscard]] std::vector<RunningApplication> list();
    /// The application with its handle, which it gets here if it has none.
    [[nodiscard]] RunningApplication describe(NSRunningApplication* application);
    /// Nil when the application has ended.
    [[nodiscard]] NSRunningApplication* find(std::uint64_t handle) const;

private:
    struct Entry {
        std::uint64_t handle = 0;
        NSRunningApplication* application = nil;
    };

    [[nodiscard]] std::uint64_t handleOf(NSRunningApplication* application);

    std::vector<Entry> m_entries;
    std::uint64_t m_lastHandle = 0;
};

} // namespace quillary
