#pragma once

#include "platform/Scheduler.h"

#include <QElapsedTimer>

namespace quillary {

/// A Scheduler of Qt's timers and event loop. Each piece of work for another thread gets a thread of its own.
class QtScheduler final : public Scheduler {
public:
    QtScheduler();
    /// Discards the results of unfinished work. Waits briefly for such work, but not for work that hangs.
    ~QtScheduler() override;

    [[nodiscard]] std::unique_ptr<ScheduledTask> after(double seconds, std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledTask> every(double seconds, std::function<void()> work) override;
    void onWorker(std::function<std::function<void()>()> work) override;
    [[nodiscard]] double now() const override;

private:
    struct Workers;

    // Shared with the threads, which may outlive the scheduler.
    std::shared_ptr<Workers> m_workers;
    QElapsedTimer m_clock;
};

} // namespace quillary
