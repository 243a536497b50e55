#pragma once

#include "platform/RunningApplication.h"

#include <cstdint>
#include <vector>

#import <AppKit/AppKit.h>

namespace quillary {

/// Gives each running application a handle of its own: process ids are used again, these are not.
class MacRunningApplications {
public:
    /// The applications in the system's order. Those that are no longer among them lose their handles.
    [[nodiscard]] std::vector<RunningApplication> list();
    [[nodiscard]] RunningApplication describe(NSRunningApplication* application);
    /// Nil for a handle whose application has gone.
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
