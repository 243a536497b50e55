#pragma once

#include "tests/x11/VirtualDisplay.h"

#include <map>
#include <string>

#include <sys/types.h>

namespace quillary::test {

/// How many resources of each type (windows, pixmaps, …) the X server keeps for all connections of a process,
/// by the X-Resource extension 1.2. Empty when it cannot be asked.
[[nodiscard]] std::map<std::string, unsigned> clientResources(const VirtualDisplay& display, pid_t process);

} // namespace quillary::test
