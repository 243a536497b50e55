#pragma once

#include <cstdint>
#include <string>

using GDBusConnection = struct _GDBusConnection; // NOLINT(clang-diagnostic-reserved-identifier)

namespace quillary {

/// Moves a child process that has just started into its own scope of the user's service manager, so that its
/// resources are accounted and limited separately from this program (systemd.io, "Desktop Environment
/// Integration"). `entryStem` is the desktop entry's file name without ".desktop". `bus` may be null; the
/// user manager's own bus is tried then. Does nothing when there is no such manager. Blocks for some seconds
/// at most: not for the main thread.
void putInScopeOfItsOwn(GDBusConnection* bus, const std::string& entryStem, std::int64_t pid);

} // namespace quillary
