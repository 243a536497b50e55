#include "tests/fake/ManualScheduler.h"

#include <algorithm>
#include <limits>

namespace quillary::test {

class ManualScheduler::Task final : public ScheduledTask {
public:
    Task(std::weak_ptr<ManualScheduler*> scheduler, std::shared_ptr<Plan> plan)
        : m_owner(std::move(scheduler)), m_planned(std::move(plan)) {}
    ~Task() override {
        if (const auto scheduler = m_owner.lock()) {
            std::erase((*scheduler)->m_plans, m_planned);
        }
    }

private:
    std::weak_ptr<ManualScheduler*> m_owner;
    std::shared_ptr<Plan> m_planned;
};

std::unique_ptr<ScheduledTask> ManualScheduler::after(double seconds, std::function<void()> work) {
    return plan(seconds, 0, std::move(work));
}

std::unique_ptr<ScheduledTask> ManualScheduler::every(double seconds, std::function<void()> work) {
    return plan(seconds, seconds, std::move(work));
}

std::unique_ptr<ScheduledTask> ManualScheduler::plan(double seconds, double interval,
                                                     std::function<void()> work) {
    m_plans.push_back(std::make_shared<Plan>(Plan{m_time + seconds, m_planned++, interval, std::move(work)}));
    return std::make_unique<Task>(m_self, m_plans.back());
}

void ManualScheduler::onWorker(std::function<std::function<void()>()> work) {
    m_workers.push_back(std::move(work));
}

void ManualScheduler::advance(double seconds) {
    // Sums of decimal fractions miss their target by an ulp: what is due "now" includes that.
    constexpr double slack = 1e-9;
    const double until = m_time + seconds;
    // Work that plans more work for this very moment sees it run in the next turn, as in a real event loop.
    const std::uint64_t turn = seconds > 0 ? std::numeric_limits<std::uint64_t>::max() : m_planned;
    for (auto due = next(until + slack, turn); due != m_plans.end(); due = next(until + slack, turn)) {
        const auto current = *due;
        m_time = std::max(m_time, current->due);
        if (current->interval > 0) {
            current->due += current->interval;
            current->order = m_planned++;
        } else {
            m_plans.erase(due);
        }
        current->work();
    }
    m_time = until;
}

ManualScheduler::Plans::iterator ManualScheduler::next(double until, std::uint64_t before) {
    auto found = m_plans.end();
    for (auto plan = m_plans.begin(); plan != m_plans.end(); ++plan) {
        if ((*plan)->due > until || (*plan)->order >= before) {
            continue;
        }
        if (found == m_plans.end() || (*plan)->due < (*found)->due ||
            ((*plan)->due == (*found)->due && (*plan)->order < (*found)->order)) {
            found = plan;
        }
    }
    return found;
}

bool ManualScheduler::finishWork() {
    if (m_workers.empty()) {
        return false;
    }
    const auto work = std::move(m_workers.front());
    m_workers.pop_front();
    if (const auto then = work()) {
        then();
    }
    return true;
}

} // namespace quillary::test
