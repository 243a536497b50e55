#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillary::X11Text {

/// The longest text that is read from another program's window, in bytes.
inline constexpr std::size_t maxBytes = 1024;

/// A window's text as valid UTF-8 of at most maxBytes bytes, up to the first NUL. Text that is not UTF-8 is
/// decoded as Latin-1, the encoding of ICCCM's STRING. Control characters become spaces. Truncation splits no
/// character.
[[nodiscard]] std::string clean(std::string_view bytes);

} // namespace quillary::X11Text
