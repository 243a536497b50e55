#pragma once

namespace quillary {

/// Ends the process after a mistake of the program itself: writes one line with `message` to standard error,
/// aborts.
[[noreturn]] void fatal(const char* message);

} // namespace quillary
