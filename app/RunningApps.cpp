#include "app/RunningApps.h"

#include "platform/Workspace.h"

#include <algorithm>

namespace quillary {

RunningApps::RunningApps(Workspace& workspace) : m_workspace(workspace) {
    connect(&m_workspace, &Workspace::applicationLaunched, this, &RunningApps::refresh);
    connect(&m_workspace, &Workspace::applicationTerminated, this, &RunningApps::refresh);
    connect(&m_workspace, &Workspace::applicationActivated, this, &RunningApps::refresh);
    refresh();
}

std::vector<std::string> RunningApps::paths() const {
    std::vector<std::string> result;
    result.reserve(m_apps.size());
    for (const RunningApplication& application : m_apps) {
        if (application.bundlePath) {
            result.push_back(*application.bundlePath);
        }
    }
    return result;
}

const RunningApplication* RunningApps::app(std::string_view path) const {
    const auto found = std::ranges::find_if(
        m_apps, [path](const RunningApplication& entry) { return entry.bundlePath == path; });
    return found == m_apps.end() ? nullptr : &*found;
}

void RunningApps::refresh() {
    auto all = m_workspace.runningApplications();
    const auto own = m_workspace.ownBundleIdentifier();
    std::erase_if(all, [&own](const RunningApplication& entry) {
        return entry.policy != ActivationPolicy::regular || !entry.bundlePath ||
               entry.bundleIdentifier == own;
    });
    m_apps = std::move(all);
    Q_EMIT appsChanged();

    const auto front = m_workspace.frontmostApplication();
    m_activePath = front ? front->bundlePath : std::nullopt;
    Q_EMIT activePathChanged();
}

} // namespace quillary
