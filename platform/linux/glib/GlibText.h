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

} // namespace quillary
