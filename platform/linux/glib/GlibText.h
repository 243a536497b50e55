#pragma once

#include <string>
#include <vector>

namespace quillary {

/// Takes over a text that GLib allocated; empty for null.
[[nodiscard]] std::string takeText(char* text);
/// Takes over a null-terminated list of texts that GLib allocated; empty for null.
[[nodiscard]] std::vector<std::string> takeTexts(char** texts);

/// The file URI of an absolute path (RFC 8089); empty when it can't be formed.
[[nodiscard]] std::string fileUri(const std::string& path);
/// The absolute path of a file URI as desktops store it, which may hold letters beyond ASCII and blanks
/// without escapes; any bytes. Empty for anything else. `pathOfFileUrl` is for URIs that obey RFC 3986.
[[nodiscard]] std::string pathOfStoredUri(const std::string& uri);

} // namespace quillary
