#pragma once

#include <cstdint>
#include <vector>

namespace quillary::ProcList {

/// The ids of the processes that run now on Darwin, in the system's own order; each above 0. Empty when the
/// system does not give them.
[[nodiscard]] std::vector<std::int32_t> allPIDs();

} // namespace quillary::ProcList
