#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillary {

/// The absolute path, in UTF-8, that a file URL (RFC 8089) on this host names: its path component with
/// escapes decoded and without one trailing slash ("file:///" alone is "/"). Query and fragment are ignored.
///
/// Nothing for text that is no URL by the strict rules of RFC 3986 (blanks and letters beyond ASCII must be
/// escaped), that is longer than 16 KiB, has another scheme, a host other than "localhost", no absolute path,
/// or a path that holds a NUL or is not UTF-8.
[[nodiscard]] std::optional<std::string> pathOfFileUrl(std::string_view url);

} // namespace quillary
