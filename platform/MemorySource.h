#pragma once

#include "core/AppUsage.h"
#include "core/MemoryStats.h"

#include <functional>
#include <vector>

namespace quillary {

/// What one look at the machine's memory gave.
struct MemorySample {
    MemoryStats stats;
    /// At most one entry an application, by falling size, equal sizes by name. The program itself is not
    /// among them.
    std::vector<AppUsage> applications;

    bool operator==(const MemorySample&) const = default;
};

/// Tells how much memory the machine and each of the user's applications use.
class MemorySource {
public:
    /// Takes a sample; runs on any thread, never fails: what cannot be read is 0 or missing.
    using Sampler = std::function<MemorySample()>;

    virtual ~MemorySource() = default;

    /// A sampler for one sample, with its own copy of what the main thread knows. Called on the main thread.
    /// Samplers of one source may run at the same time, and after the source has gone.
    [[nodiscard]] virtual Sampler sampler() = 0;
};

} // namespace quillary
