#pragma once

#include "core/Result.h"
#include "platform/linux/launch/StartupNotification.h"

#include <chrono>
#include <string>
#include <vector>

// GIO's types; its headers stay out of ours.
using GDesktopAppInfo = struct _GDesktopAppInfo; // NOLINT(bugprone-reserved-identifier)
using GError = struct _GError;                   // NOLINT(bugprone-reserved-identifier)

namespace quillary {

/// How long a launch waits for the session bus to accept the connection.
inline constexpr std::chrono::milliseconds busPatience{3000};

/// Starts the entry's program by GIO, with the files that are absolute paths: over the session bus when the
/// entry is DBusActivatable and there is a bus, else as a detached child in a scope of its own. Blocks, up to
/// half a minute for an activation that gets no answer.
[[nodiscard]] Result<> startEntry(GDesktopAppInfo* entry, const std::vector<std::string>& files,
                                  const StartupOrigin& origin);

/// The file name of the entry without ".desktop".
[[nodiscard]] std::string entryStem(GDesktopAppInfo* entry);

/// The error's message; `error` may be null.
[[nodiscard]] Failure failureOf(const GError* error);

} // namespace quillary
