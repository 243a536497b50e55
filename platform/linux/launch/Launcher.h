#pragma once

#include "core/Result.h"
#include "platform/linux/launch/StartupNotification.h"

#include <functional>
#include <string>
#include <vector>

namespace quillary {

class Scheduler;
class SystemLog;

/// Starts applications from their desktop entries and opens files with them.
///
/// Everything runs on a worker, because GIO talks to the session bus on the way and that may not answer: no
/// call blocks. The program's environment is passed on without what concerns this program alone; the children
/// are detached (a session of their own, not our children, standard streams to nowhere, none of our files)
/// and, under a systemd user manager, in a scope of their own. What fails is written to the log as one line.
class Launcher {
public:
    /// The first two must outlive the launcher's last work, the notification, which may be null, the
    /// launcher.
    Launcher(Scheduler& scheduler, SystemLog& log, const StartupNotification* notification = nullptr);

    /// Starts the entry, or hands it the files by the field codes of its Exec. Absolute paths.
    void launch(const std::string& entryPath, const std::vector<std::string>& files = {});
    /// Opens a file or folder with its default application.
    void open(const std::string& path);
    /// Shows the path, selected, in the file manager; when none offers that, opens the folder that holds it.
    void reveal(const std::string& path);

private:
    void onWorker(std::function<Result<>(const StartupOrigin&)> work);

    Scheduler& m_scheduler;
    SystemLog& m_log;
    const StartupNotification* m_notification;
};

} // namespace quillary
