#pragma once

#include "platform/Scheduler.h"

#include <QElapsedTimer>

namespace quillary {

/// Qt's timers and event loop; a thread for each piece of work that leaves the main one.
class QtScheduler final : public Scheduler {
public:
    QtScheduler();
    /// Drops the results of work that is still under way. Waits a moment for such work, but not for one that
    /// hangs.
    ~QtScheduler() override;

    [[nodiscard]] std::unique_ptr<ScheduledTask> after(double seconds, std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledTask> every(double seconds, std::function<void()> work) override;
    void onWorker(std::function<std::function<void()>()> work) override;
    [[nodiscard]] double now() const override;

private:
    struct Workers;

    // Shared with the threads, which may outlive this.
    std::shared_ptr<Workers> m_workers;
    QElapsedTimer m_clock;
};

} // namespace quillary
