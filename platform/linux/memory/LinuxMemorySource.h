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
    /// Tells which processes show windows of which applications; called on the main thread only.
    using Desktop = std::function<DesktopNow()>;

    /// `ownId` is this program's desktop file id. `root` is where "proc" and "sys" stand.
    LinuxMemorySource(Desktop desktop, std::string ownId, const std::filesystem::path& root = "/");
    ~LinuxMemorySource() override;

    /// Samplers run as a batch job of the kernel's scheduler: they wait until what the user does leaves time.
    /// Not as an idle one: a reading holds up the process that is read while it changes its address space.
    [[nodiscard]] Sampler sampler() override;

private:
    struct Shared;

    Desktop m_desktop;
    std::shared_ptr<Shared> m_shared;
};

} // namespace quillary
