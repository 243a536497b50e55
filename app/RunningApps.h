#pragma once

#include "platform/RunningApplication.h"

#include <QObject>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillary {

class Workspace;

/// The applications with windows for the user that run now, and the one in front. All docks share one
/// tracker.
///
/// Every signal is emitted on every assignment, changed or not.
class RunningApps : public QObject {
    Q_OBJECT

public:
    /// Reads the applications at once. The workspace must outlive the tracker.
    explicit RunningApps(Workspace& workspace);

    /// The applications with windows for the user, without this program, in the system's order.
    [[nodiscard]] const std::vector<RunningApplication>& apps() const { return m_apps; }
    /// Path of the application in front, whether it is in `apps` or not; absent when it has none.
    [[nodiscard]] const std::optional<std::string>& activePath() const { return m_activePath; }
    /// The path of each entry of `apps` that has one, in the same order.
    [[nodiscard]] std::vector<std::string> paths() const;
    /// The first entry with exactly this path; null when there is none. Valid until the next refresh.
    [[nodiscard]] const RunningApplication* app(std::string_view path) const;

    /// Reads both fields anew from the system.
    void refresh();

Q_SIGNALS:
    void appsChanged();
    void activePathChanged();

private:
    Workspace& m_workspace;
    std::vector<RunningApplication> m_apps;
    std::optional<std::string> m_activePath;
};

} // namespace quillary
