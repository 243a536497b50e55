#pragma once

#include <memory>

namespace quillary {

class Platform;

/// Sets what this process's environment must say before a library reads it. Call it first in main, while
/// there is one thread and no QApplication.
void prepareEnvironment();

/// Whether the session has a window system that the program can run on; writes one line to standard error
/// when it has none. Call it before a QApplication is constructed, which aborts without a window system.
[[nodiscard]] bool sessionHasWindowSystem();

/// Creates the platform for the session's window system. Needs a QApplication. Null, with one line on
/// standard error, when no backend supports the window system.
[[nodiscard]] std::unique_ptr<Platform> makePlatform();

} // namespace quillary
