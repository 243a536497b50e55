#pragma once

#include <string>
#include <vector>

namespace quillary {

/// Starts a program and waits until it has ended; the event loop stands still meanwhile, so nothing of the
/// program runs in between. Its exit status; -1 when it could not be started or was killed.
int runAndWait(const std::string& program, const std::vector<std::string>& arguments);

} // namespace quillary
