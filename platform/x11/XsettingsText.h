#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillary {

/// The text of the setting with that name in the bytes of a _XSETTINGS_SETTINGS property (XSETTINGS
/// standard 0.5, "Format of the _XSETTINGS_SETTINGS property"). The bytes are untrusted. Nothing when
/// there is no setting of that name, when it is a number or a colour, when it is not UTF-8, or when the bytes
/// are damaged before its end.
[[nodiscard]] std::optional<std::string> xsettingsText(std::string_view bytes, std::string_view name);

} // namespace quillary
