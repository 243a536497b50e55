#pragma once

#include "platform/Scheduler.h"

#include <QElapsedTimer>
#include <QObject>

namespace quillary {

/// Qt's timers, event loop and threads.
class QtScheduler final : public Scheduler {
public:
    QtScheduler();

    [[nodiscard]] std::unique_ptr<ScheduledTask> after(double seconds, std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledTask> every(double seconds, std::function<void()> work) override;
    void onWorker(std::function<std::function<void()>()> work) override;
    [[nodiscard]] double now() const override;

private:
    // Results of workers are delivered in its name: once it is gone they are dropped.
    std::shared_ptr<QObject> mainThread;
    QElapsedTimer clock;
};

} // namespace quillary
