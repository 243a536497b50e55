#pragma once

#include "platform/RunningApplication.h"

namespace quillary {

/// The meaning of an NSApplicationActivationPolicy: 0 is regular, 1 accessory, 2 prohibited. Values that are
/// not documented stand in no dock, so they are prohibited.
[[nodiscard]] ActivationPolicy activationPolicy(long value);

} // namespace quillary
