#pragma once

#include "platform/RunningApplication.h"

namespace quillary {

/// Converts an NSApplicationActivationPolicy: 0 is regular, 1 accessory, 2 prohibited. Undocumented values
/// are prohibited, so that such applications appear in no dock.
[[nodiscard]] ActivationPolicy activationPolicy(long value);

} // namespace quillary
