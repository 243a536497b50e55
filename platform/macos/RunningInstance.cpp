#include "platform/macos/RunningInstance.h"

#include <algorithm>
#include <tuple>

namespace quillary {

bool makesWay(const RunningInstance& own, const std::vector<RunningInstance>& others) {
    return std::ranges::any_of(others, [&own](const RunningInstance& other) {
        return other.pid != own.pid && std::tie(other.launched, other.pid) < std::tie(own.launched, own.pid);
    });
}

} // namespace quillary
