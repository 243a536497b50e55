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
/// No function blocks: GIO uses the session bus, which may not answer, so the work runs on a worker, which
/// writes a failure to the log as one line. Programs inherit the environment except variables that concern
/// this process only. They are detached: own session, reparented, standard streams connected to /dev/null, no
/// inherited descriptors; under a systemd user manager, each is in its own scope.
class Launcher {
public:
    /// `scheduler` and `log` must outlive the work that was started; `notification` must outlive the launcher
    /// and may be null.
    Launcher(Scheduler& scheduler, SystemLog& log, const StartupNotification* notification = nullptr);

    /// Starts the desktop entry, with the files passed according to the field codes of its Exec key. Absolute
    /// paths.
    void launch(const std::string& entryPath, const std::vector<std::string>& files = {});
    /// Opens a file or folder with its default application.
    void open(const std::string& path);
    /// Shows the path, selected, in the file manager; when that is not supported, opens the containing
    /// folder.
    void reveal(const std::string& path);

private:
    void onWorker(std::function<Result<>(const StartupOrigin&)> work);

    Scheduler& m_scheduler;
    SystemLog& m_log;
    const StartupNotification* m_notification;
};

} // namespace quillary
