#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace quillary::test::ChildProcess {

/// Starts a program that dies with this process. `inherited` is a file descriptor that it keeps, -1 for none.
/// Its output goes to standard error when QUILLARY_TEST_VERBOSE is set, else nowhere. 0 when it cannot be
/// started.
[[nodiscard]] pid_t start(const std::vector<std::string>& command, int inherited = -1);

/// Asks it to end, kills it when it does not within two seconds, and reaps it.
void end(pid_t process);

/// Waits for its end, up to the deadline (milliseconds); its exit status, -1 when it failed or is still
/// running.
[[nodiscard]] int wait(pid_t process, int milliseconds);

} // namespace quillary::test::ChildProcess
