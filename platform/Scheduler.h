#pragma once

#include <functional>
#include <memory>

namespace quillary {

/// Work that is planned. Destroying it takes the plan back; once it has run, that does nothing.
class ScheduledTask {
public:
    ScheduledTask() = default;
    ScheduledTask(const ScheduledTask&) = delete;
    ScheduledTask& operator=(const ScheduledTask&) = delete;
    virtual ~ScheduledTask() = default;
};

/// Time and the main thread's queue.
class Scheduler {
public:
    virtual ~Scheduler() = default;

    /// Runs the work once on the main thread, after the given seconds; 0 means the next turn of the event
    /// loop.
    [[nodiscard]] virtual std::unique_ptr<ScheduledTask> after(double seconds,
                                                               std::function<void()> work) = 0;
    /// Runs the work on the main thread again and again, the first time after one interval. Seconds.
    [[nodiscard]] virtual std::unique_ptr<ScheduledTask> every(double seconds,
                                                               std::function<void()> work) = 0;
    /// Runs the work on another thread; what it returns is then run on the main thread.
    /// Work that hangs when the program ends is not waited for.
    virtual void onWorker(std::function<std::function<void()>()> work) = 0;
    /// Seconds on a monotonic clock with an arbitrary zero.
    [[nodiscard]] virtual double now() const = 0;
};

} // namespace quillary
