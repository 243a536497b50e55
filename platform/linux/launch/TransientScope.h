#pragma once

#include <cstdint>
#include <string>

using GDBusConnection = struct _GDBusConnection; // NOLINT(bugprone-reserved-identifier)

namespace quillary {

/// Moves a process of ours that has just started into a scope of its own below the user's service manager, so
/// that it is accounted for and limited apart from this program (systemd.io, "Desktop Environment
/// Integration"). `bus` may be null: the user manager's own bus is then tried. Where there is no such manager
/// nothing happens. Waits for the answer: not for the main thread.
void putInScopeOfItsOwn(GDBusConnection* bus, const std::string& entryStem, std::int64_t pid);

} // namespace quillary
