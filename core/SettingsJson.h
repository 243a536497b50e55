#pragma once

#include "core/Result.h"
#include "core/Settings.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillary {

/// The settings as UTF-8 JSON (RFC 8259), indented, keys sorted. Ill-formed UTF-8 becomes U+FFFD. Fails when
/// a number is not finite, since JSON has no such numbers.
[[nodiscard]] Result<std::string> encodeSettings(const Settings& settings);

/// The settings that `json` holds. Missing keys, and null, stand for the defaults; unknown keys are ignored.
/// Nothing when the text is not UTF-8 JSON, when a value has the wrong type, when an enumeration's string is
/// unknown, when a dock has no "screenKey", or when values are nested more than 64 deep.
[[nodiscard]] std::optional<Settings> decodeSettings(std::string_view json);

} // namespace quillary
