#pragma once

#include <string>
#include <vector>

namespace quillary {

/// Runs a program and waits until it has ended, without running the event loop meanwhile. Returns its exit
/// status; -1 when it could not be started or a signal ended it.
int runAndWait(const std::string& program, const std::vector<std::string>& arguments);

} // namespace quillary
