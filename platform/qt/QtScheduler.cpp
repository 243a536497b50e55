#include "platform/qt/QtScheduler.h"

#include <QThread>
#include <QTimer>

#include <cmath>

namespace quillary {

namespace {

class QtTask final : public ScheduledTask {
public:
    QtTask(double seconds, bool repeats, std::function<void()> work) {
        timer.setSingleShot(!repeats);
        timer.setTimerType(seconds >= 1.0 ? Qt::CoarseTimer : Qt::PreciseTimer);
        timer.setInterval(static_cast<int>(std::lround(seconds * 1000.0)));
        // The work may destroy this task, and its own closure with it: run a copy.
        QObject::connect(&timer, &QTimer::timeout, &timer, [work = std::move(work)] {
            const auto running = work;
            running();
        });
        timer.start();
    }

private:
    QTimer timer;
};

} // namespace

QtScheduler::QtScheduler() : mainThread(std::make_shared<QObject>()) {
    clock.start();
}

std::unique_ptr<ScheduledTask> QtScheduler::after(double seconds, std::function<void()> work) {
    return std::make_unique<QtTask>(seconds, false, std::move(work));
}

std::unique_ptr<ScheduledTask> QtScheduler::every(double seconds, std::function<void()> work) {
    return std::make_unique<QtTask>(seconds, true, std::move(work));
}

void QtScheduler::onWorker(std::function<std::function<void()>()> work) {
    // A detached thread and a weak owner: the program may end while the work is still under way.
    auto* thread = QThread::create([work = std::move(work), owner = std::weak_ptr<QObject>(mainThread)] {
        auto then = work();
        if (const auto receiver = owner.lock()) {
            QMetaObject::invokeMethod(receiver.get(), std::move(then), Qt::QueuedConnection);
        }
    });
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start(QThread::LowPriority);
}

double QtScheduler::now() const {
    return static_cast<double>(clock.nsecsElapsed()) * 1e-9;
}

} // namespace quillary
