#pragma once

#include "platform/Scheduler.h"

#include <cstdint>
#include <list>
#include <memory>

namespace quillary::test {

/// A clock that stands still until a test moves it. Work due at the same moment runs in the order it was
/// planned in.
class ManualScheduler final : public Scheduler {
public:
    [[nodiscard]] std::unique_ptr<ScheduledTask> after(double seconds, std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledTask> every(double seconds, std::function<void()> work) override;
    /// Runs the work at the next `finishWork`.
    void onWorker(std::function<std::function<void()>()> work) override;
    [[nodiscard]] double now() const override { return m_time; }

    /// Lets the seconds pass, running what falls due at its own moment. 0 runs what is due now: one turn of
    /// the loop.
    void advance(double seconds);
    /// Runs the oldest work given to a worker, and its result on the main thread. False when there is none.
    bool finishWork();
    /// How many tasks wait for their moment.
    [[nodiscard]] std::size_t pending() const { return m_plans.size(); }

private:
    struct Plan {
        double due;
        std::uint64_t order;
        double interval; // 0: once
        std::function<void()> work;
    };
    class Task;
    using Plans = std::list<std::shared_ptr<Plan>>;

    std::unique_ptr<ScheduledTask> plan(double seconds, double interval, std::function<void()> work);
    [[nodiscard]] Plans::iterator next(double until, std::uint64_t before);

    double m_time = 0;
    std::uint64_t m_planned = 0;
    Plans m_plans;
    std::list<std::function<std::function<void()>()>> m_workers;
    // Tasks that outlive the scheduler find it gone.
    std::shared_ptr<ManualScheduler*> m_self = std::make_shared<ManualScheduler*>(this);
};

} // namespace quillary::test
