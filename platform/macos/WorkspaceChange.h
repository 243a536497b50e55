#pragma once

#include <string_view>

namespace quillary {

/// What a notification of the workspace's centre tells about running applications.
enum class WorkspaceChange { none, launched, terminated, activated };

/// By the notification's name; `none` for those that tell nothing about running applications.
[[nodiscard]] WorkspaceChange workspaceChange(std::string_view notification);

} // namespace quillary
