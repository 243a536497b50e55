#pragma once

#include "core/AppUsage.h"
#include "core/MemoryStats.h"

#include <functional>
#include <vector>

namespace quillary {

/// The memory figures of one moment.
struct MemorySample {
    MemoryStats stats;
    /// One entry per application, in descending order of size, equal sizes in order of name. The program
    /// itself is left out.
    std::vector<AppUsage> applications;

    bool operator==(const MemorySample&) const = default;
};

/// Measures how much memory the machine and each of the user's applications use.
class MemorySource {
public:
    /// Takes a sample. Runs on any thread and never fails: figures that cannot be read are 0, applications
    /// that cannot be read are missing.
    using Sampler = std::function<MemorySample()>;

    virtual ~MemorySource() = default;

    /// A sampler for one sample, with its own copy of the main thread's state. Called on the main thread.
    /// Samplers of one source may run concurrently, and may outlive the source.
    [[nodiscard]] virtual Sampler sampler() = 0;
};

} // namespace quillary
