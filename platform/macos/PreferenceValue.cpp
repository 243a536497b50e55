#include "platform/macos/PreferenceValue.h"

#include <cmath>

namespace quillary {

std::optional<bool> PreferenceValue::boolean() const {
    if (const bool* value = std::get_if<bool>(&held)) {
        return *value;
    }
    if (const double* value = std::get_if<double>(&held); value != nullptr && (*value == 0 || *value == 1)) {
        return *value == 1;
    }
    return std::nullopt;
}

std::optional<double> PreferenceValue::number() const {
    const double* value = std::get_if<double>(&held);
    return value != nullptr && std::isfinite(*value) ? std::optional(*value) : std::nullopt;
}

} // namespace quillary
