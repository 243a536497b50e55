#include "platform/macos/DisplayNumber.h"

#include <cmath>
#include <limits>

namespace quillary {

std::uint32_t displayNumber(std::optional<double> described) {
    if (!described || !(*described >= 0) || *described > std::numeric_limits<std::uint32_t>::max() ||
        std::trunc(*described) != *described) {
        return 0;
    }
    return static_cast<std::uint32_t>(*described);
}

} // namespace quillary
