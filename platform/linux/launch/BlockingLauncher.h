#pragma once

#include "core/Result.h"
#include "platform/linux/launch/StartupNotification.h"

#include <string>
#include <vector>

/// The work of Launcher, step by step in the calling thread, which it may block. The error of each operation
/// is the end of the sentence "Quillary: could not …".
namespace quillary::BlockingLauncher {

/// Starts the desktop entry with the files, by GIO alone.
[[nodiscard]] Result<> launch(const std::string& entryPath, const std::vector<std::string>& files,
                              const StartupOrigin& origin);
/// Opens the file or folder with its default application.
[[nodiscard]] Result<> open(const std::string& path, const StartupOrigin& origin);
/// Asks the file manager to show the path, else opens the folder that holds it. A link is shown itself.
[[nodiscard]] Result<> reveal(const std::string& path, const StartupOrigin& origin);

} // namespace quillary::BlockingLauncher
