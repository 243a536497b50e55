#include "platform/qt/QtScheduler.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace quillary {

namespace {

constexpr std::chrono::milliseconds patienceAtTheEnd{200};

// Rounded up, so that no work is early, but not for the error of a product such as 0.07 · 1000.
int millisecondsFor(double seconds) {
    constexpr double error = 1e-6;
    return static_cast<int>(std::ceil(seconds * 1000.0 - error));
}

class QtTask final : public ScheduledTask {
public:
    enum class Runs { once, repeatedly };

    QtTask(Runs runs, double seconds, std::function<void()> work) {
        m_timer.setSingleShot(runs == Runs::once);
        // Qt's coarse timers may fire 5 % early or late, which is seen where a delay ends a movement.
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(millisecondsFor(seconds));
        // The work may destroy this task and with it the closure that runs: call a copy.
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [work = std::move(work)] {
            const auto running = work;
            running();
        });
        m_timer.start();
    }

private:
    QTimer m_timer;
};

} // namespace

struct QtScheduler::Workers {
    std::mutex lock;
    std::condition_variable finished;
    int underWay = 0;
    // The context object of queued results; null once the scheduler is destroyed.
    QObject* receiver = nullptr;
};

QtScheduler::QtScheduler() : m_workers(std::make_shared<Workers>()) {
    m_workers->receiver = new QObject;
    m_clock.start();
}

QtScheduler::~QtScheduler() {
    std::unique_lock guard(m_workers->lock);
    delete std::exchange(m_workers->receiver, nullptr);
    m_workers->finished.wait_for(guard, patienceAtTheEnd, [this] { return m_workers->underWay == 0; });
}

std::unique_ptr<ScheduledTask> QtScheduler::after(double seconds, std::function<void()> work) {
    return std::make_unique<QtTask>(QtTask::Runs::once, seconds, std::move(work));
}

std::unique_ptr<ScheduledTask> QtScheduler::every(double seconds, std::function<void()> work) {
    return std::make_unique<QtTask>(QtTask::Runs::repeatedly, seconds, std::move(work));
}

void QtScheduler::onWorker(std::function<std::function<void()>()> work) {
    {
        const std::lock_guard guard(m_workers->lock);
        ++m_workers->underWay;
    }
    std::thread([work = std::move(work), shared = m_workers]() mutable {
        auto then = work();
        work = nullptr;
        const std::lock_guard guard(shared->lock);
        if (shared->receiver != nullptr) {
            QMetaObject::invokeMethod(shared->receiver, std::move(then), Qt::QueuedConnection);
        }
        --shared->underWay;
        shared->finished.notify_all();
    }).detach();
}

double QtScheduler::now() const {
    return static_cast<double>(m_clock.nsecsElapsed()) * 1e-9;
}

} // namespace quillary
