#pragma once

#include <cstdint>
#include <vector>

namespace quillary::ProcList {

/// The ids of the processes that run now, in the system's own order; each above 0. Empty when the system does
/// not tell.
[[nodiscard]] std::vector<std::int32_t> allPIDs();

} // namespace quillary::ProcList
