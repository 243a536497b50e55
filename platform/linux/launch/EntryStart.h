#pragma once

#include "core/Result.h"
#include "platform/linux/launch/StartupNotification.h"

#include <chrono>
#include <string>
#include <vector>

// GIO's types; its headers stay out of ours.
using GDesktopAppInfo = struct _GDesktopAppInfo; // NOLINT(clang-diagnostic-reserved-identifier)
using GError = struct _GError;                   // NOLINT(clang-diagnostic-reserved-identifier)

namespace quillary {

/// How long a launch waits for the session bus to accept the connection.
inline constexpr std::chrono::milliseconds busPatience{3000};

/// Starts the entry's program with the files (absolute paths): over the session bus when the entry is
/// DBusActivatable and there is a bus, otherwise as a detached child in its own scope. Blocks, up to 30 s
/// when an activation is not answered.
[[nodiscard]] Result<> startEntry(GDesktopAppInfo* entry, const std::vector<std::string>& files,
                                  const StartupOrigin& origin);

/// The file name of the entry without ".desktop".
[[nodiscard]] std::string entryStem(GDesktopAppInfo* entry);

/// The error's message; `error` may be null.
[[nodiscard]] Failure failureOf(const GError* error);

} // namespace quillary
