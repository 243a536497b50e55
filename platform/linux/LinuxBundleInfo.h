#pragma once

#include "platform/BundleInfo.h"

#include <filesystem>

namespace quillary {

/// Reads the program's version from an installed file: a JSON object with the strings
/// "CFBundleShortVersionString" and "CFBundleVersion". A value is absent when it is missing, not a string, or
/// not a line of 1 to 64 bytes; both are when the file cannot be read, is over 64 KiB or is not a JSON
/// object.
[[nodiscard]] BundleInfo readBundleInfo(const std::filesystem::path& file);

/// Where that file is installed, for a program at this path.
[[nodiscard]] std::filesystem::path bundleInfoFile(const std::filesystem::path& program);

} // namespace quillary
