#pragma once

#include "core/Result.h"
#include "platform/linux/bus/TimeLimit.h"

#include <string>
#include <vector>

// GIO's connection; its headers stay out of ours.
using GDBusConnection = struct _GDBusConnection; // NOLINT(clang-diagnostic-reserved-identifier)

namespace quillary::SessionBus {

/// The connection to the session bus that the whole process shares; it lives as long as the program. Null
/// when there is no session bus, or it refuses us; an error when the bus takes the connection but does not
/// answer within the limit. Losing the connection does not end the program.
[[nodiscard]] Result<GDBusConnection*> connect(const TimeLimit& limit);

/// Asks the file manager to show the files of the URIs, selected (org.freedesktop.FileManager1, File Manager
/// DBus Interface). Blocks until the answer, up to 25 s: not for the main thread. False when there is no
/// answer or it is an error.
[[nodiscard]] bool showItems(GDBusConnection* bus, const std::vector<std::string>& uris,
                             const std::string& startupId);

} // namespace quillary::SessionBus
