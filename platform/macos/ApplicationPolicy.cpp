#include "platform/macos/ApplicationPolicy.h"

namespace quillary {

ActivationPolicy activationPolicy(long value) {
    switch (value) {
    case 0:
        return ActivationPolicy::regular;
    case 1:
        return ActivationPolicy::accessory;
    default:
        return ActivationPolicy::prohibited;
    }
}

} // namespace quillary
