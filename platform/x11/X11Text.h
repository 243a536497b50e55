#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillary::X11Text {

/// The longest text that is taken from another program's window, in bytes.
inline constexpr std::size_t maxBytes = 1024;

/// A window's text as valid UTF-8 of at most maxBytes bytes. It ends at the first NUL. Bytes that are no
/// UTF-8 are read as Latin-1, the encoding of ICCCM's STRING; control characters become spaces; cutting
/// splits no character.
[[nodiscard]] std::string clean(std::string_view bytes);

} // namespace quillary::X11Text
