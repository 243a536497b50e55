#include "platform/linux/Launcher.h"

#include "platform/Scheduler.h"
#include "platform/SystemLog.h"
#include "platform/linux/EntryLaunch.h"

namespace quillary {

Launcher::Launcher(Scheduler& scheduler, SystemLog& log) : m_scheduler(scheduler), m_log(log) {}

void Launcher::onWorker(std::function<Outcome()> work) {
    m_scheduler.onWorker([work = std::move(work), &log = m_log]() -> std::function<void()> {
        return [failure = work(), &log] {
            if (!failure.empty()) {
                log.write("Quillary: could not " + failure);
            }
        };
    });
}

void Launcher::launch(const std::string& entryPath, const std::vector<std::string>& files) {
    onWorker([entryPath, files] { return EntryLaunch::launch(entryPath, files); });
}

void Launcher::open(const std::string& path) {
    onWorker([path] { return EntryLaunch::open(path); });
}

void Launcher::reveal(const std::string& path) {
    onWorker([path] { return EntryLaunch::reveal(path); });
}

} // namespace quillary
