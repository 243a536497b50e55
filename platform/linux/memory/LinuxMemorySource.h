#pragma once

#include "platform/MemorySource.h"
#include "platform/linux/memory/MemorySweep.h"
#include "platform/linux/windows/DesktopNow.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace quillary {

/// Memory of the machine and of the user's applications, from /proc. Applications are known by the paths of
/// their desktop entries, as docks know them. This program and its entry are left out.
///
/// The figure of an application is the sum over its processes of what they hold alone and their part of what
/// they share: anonymous memory that was not lazily freed, shared memory, and swap (see `FootprintEstimate`
/// for how closely). Processes of other users do not count.
class LinuxMemorySource final : public MemorySource {
public:
    /// Returns which processes show windows of which applications. Called on the main thread only.
    using Desktop = std::function<DesktopNow()>;

    /// `ownId` is this program's desktop file id. `root` is where "proc" and "sys" stand.
    LinuxMemorySource(Desktop desktop, std::string ownId, const std::filesystem::path& root = "/");
    ~LinuxMemorySource() override;

    /// Samplers run with the scheduling policy SCHED_BATCH, so that they give way to interactive programs.
    /// Not with SCHED_IDLE: a reading that gets no processor time blocks the process it reads when that
    /// changes its address space.
    [[nodiscard]] Sampler sampler() override;

private:
    struct Shared;

    Desktop m_desktop;
    std::shared_ptr<Shared> m_shared;
};

} // namespace quillary
