#include "platform/linux/launch/Launcher.h"

#include "platform/Scheduler.h"
#include "platform/SystemLog.h"
#include "platform/linux/launch/BlockingLauncher.h"

namespace quillary {

Launcher::Launcher(Scheduler& scheduler, SystemLog& log, const StartupNotification* notification)
    : m_scheduler(scheduler), m_log(log), m_notification(notification) {}

void Launcher::onWorker(std::function<Result<>(const StartupOrigin&)> work) {
    auto origin = m_notification != nullptr ? m_notification->origin() : StartupOrigin();
    m_scheduler.onWorker(
        [work = std::move(work), origin = std::move(origin), &log = m_log]() -> std::function<void()> {
            return [outcome = work(origin), &log] {
                if (!outcome) {
                    log.write("Quillary: could not " + outcome.error());
                }
            };
        });
}

void Launcher::launch(const std::string& entryPath, const std::vector<std::string>& files) {
    onWorker([entryPath, files](const auto& origin) {
        return BlockingLauncher::launch(entryPath, files, origin);
    });
}

void Launcher::open(const std::string& path) {
    onWorker([path](const auto& origin) { return BlockingLauncher::open(path, origin); });
}

void Launcher::reveal(const std::string& path) {
    onWorker([path](const auto& origin) { return BlockingLauncher::reveal(path, origin); });
}

} // namespace quillary
