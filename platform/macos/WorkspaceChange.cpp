#include "platform/macos/WorkspaceChange.h"

namespace quillary {

WorkspaceChange workspaceChange(std::string_view notification) {
    if (notification == "NSWorkspaceDidLaunchApplicationNotification") {
        return WorkspaceChange::launched;
    }
    if (notification == "NSWorkspaceDidTerminateApplicationNotification") {
        return WorkspaceChange::terminated;
    }
    if (notification == "NSWorkspaceDidActivateApplicationNotification") {
        return WorkspaceChange::activated;
    }
    return WorkspaceChange::none;
}

} // namespace quillary
