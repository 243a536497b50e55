#pragma once

#include "core/Result.h"
#include "platform/linux/launch/StartupNotification.h"

#include <string>
#include <vector>

/// What Launcher does on a worker: each function blocks the calling thread. Its error completes the sentence
/// "Quillary: could not …".
namespace quillary::BlockingLauncher {

/// Starts the desktop entry with the files. Absolute paths.
[[nodiscard]] Result<> launch(const std::string& entryPath, const std::vector<std::string>& files,
                              const StartupOrigin& origin);
/// Opens the file or folder with its default application.
[[nodiscard]] Result<> open(const std::string& path, const StartupOrigin& origin);
/// Asks the file manager to show the path; when it cannot, opens the containing folder. A symbolic link is
/// shown itself, not its target.
[[nodiscard]] Result<> reveal(const std::string& path, const StartupOrigin& origin);

} // namespace quillary::BlockingLauncher
