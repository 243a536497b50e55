#pragma once

#include <string>

namespace quillary {

class FileFacts;

/// The name that the program shows for a path: the file manager's, without a trailing ".app".
[[nodiscard]] std::string displayName(const FileFacts& files, const std::string& path);

} // namespace quillary
