#pragma once

#include "platform/BundleInfo.h"

#include <filesystem>

namespace quillary {

/// Reads what the installed program knows of itself: a JSON object with the strings
/// "CFBundleShortVersionString" and "CFBundleVersion". What is missing, no string, or no line of 1 to 64
/// bytes is absent; all of it when the file cannot be read, is over 64 KiB or is no JSON object.
[[nodiscard]] BundleInfo readBundleInfo(const std::filesystem::path& file);

/// Where that file is installed, for a program at this path.
[[nodiscard]] std::filesystem::path bundleInfoFile(const std::filesystem::path& program);

} // namespace quillary
