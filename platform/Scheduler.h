#pragma once

#include <functional>
#include <memory>

namespace quillary {

/// Work that is scheduled. Destroying the task cancels it; once the work has run, destruction has no effect.
class ScheduledTask {
public:
    ScheduledTask() = default;
    ScheduledTask(const ScheduledTask&) = delete;
    ScheduledTask& operator=(const ScheduledTask&) = delete;
    virtual ~ScheduledTask() = default;
};

/// The clock, the main thread's event loop, and worker threads.
class Scheduler {
public:
    virtual ~Scheduler() = default;

    /// Runs the work once on the main thread after this many seconds, never earlier, and later only by what
    /// the event loop is busy with; 0 means the next iteration of the event loop.
    [[nodiscard]] virtual std::unique_ptr<ScheduledTask> after(double seconds,
                                                               std::function<void()> work) = 0;
    /// Runs the work on the main thread repeatedly, every so many seconds, first after one interval.
    [[nodiscard]] virtual std::unique_ptr<ScheduledTask> every(double seconds,
                                                               std::function<void()> work) = 0;
    /// Runs the work on another thread, then the function that it returns on the main thread. The program's
    /// exit does not wait for work that hangs.
    virtual void onWorker(std::function<std::function<void()>()> work) = 0;
    /// Seconds on a monotonic clock whose epoch is arbitrary.
    [[nodiscard]] virtual double now() const = 0;
};

} // namespace quillary
