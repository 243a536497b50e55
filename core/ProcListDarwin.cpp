#include "core/ProcList.h"

#include <algorithm>

#include <libproc.h>

namespace quillary::ProcList {

namespace {

// For processes that start between the two calls.
constexpr int spareSlots = 64;

} // namespace

std::vector<std::int32_t> allPIDs() {
    const int expected = ::proc_listallpids(nullptr, 0);
    if (expected < 1) {
        return {};
    }
    std::vector<std::int32_t> pids(static_cast<std::size_t>(expected + spareSlots), 0);
    const int count = ::proc_listallpids(pids.data(), static_cast<int>(pids.size() * sizeof(std::int32_t)));
    pids.resize(std::min(static_cast<std::size_t>(std::max(count, 0)), pids.size()));
    std::erase_if(pids, [](std::int32_t pid) { return pid <= 0; });
    return pids;
}

} // namespace quillary::ProcList
