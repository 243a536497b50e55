#include "app/RunningApps.h"

#include "platform/Workspace.h"

#include <algorithm>

namespace quillary {

RunningApps::RunningApps(Workspace& system) : workspace(system) {
    connect(&workspace, &Workspace::applicationLaunched, this, &RunningApps::refresh);
    connect(&workspace, &Workspace::applicationTerminated, this, &RunningApps::refresh);
    connect(&workspace, &Workspace::applicationActivated, this, &RunningApps::refresh);
    refresh();
}

std::vector<std::string> RunningApps::paths() const {
    std::vector<std::string> result;
    result.reserve(listed.size());
    for (const RunningApplication& application : listed) {
        if (application.bundlePath) {
            result.push_back(*application.bundlePath);
        }
    }
    return result;
}

const RunningApplication* RunningApps::app(std::string_view path) const {
    const auto found = std::ranges::find_if(
        listed, [path](const RunningApplication& entry) { return entry.bundlePath == path; });
    return found == listed.end() ? nullptr : &*found;
}

void RunningApps::refresh() {
    auto all = workspace.runningApplications();
    const auto own = workspace.ownBundleIdentifier();
    std::erase_if(all, [&own](const RunningApplication& entry) {
        return entry.policy != ActivationPolicy::regular || !entry.bundlePath ||
               entry.bundleIdentifier == own;
    });
    listed = std::move(all);
    Q_EMIT appsChanged();

    const auto front = workspace.frontmostApplication();
    active = front ? front->bundlePath : std::nullopt;
    Q_EMIT activePathChanged();
}

} // namespace quillary
