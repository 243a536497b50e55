#include "platform/qt/QtScheduler.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <QTimer>

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <thread>

namespace quillary {
namespace {

bool eventually(const std::function<bool()>& condition) {
    QElapsedTimer waited;
    waited.start();
    while (!condition()) {
        if (waited.elapsed() > 20000) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

TEST(QtScheduler, runsWorkOnceAndRepeatedly) {
    QtScheduler scheduler;
    int once = 0;
    int often = 0;
    const auto single = scheduler.after(0, [&] { ++once; });
    const auto repeated = scheduler.every(0.001, [&] { ++often; });
    EXPECT_EQ(once, 0);
    EXPECT_TRUE(eventually([&] { return often >= 3; }));
    EXPECT_EQ(once, 1);
}

// Qt runs timers that are due in the order of their deadlines, however late the event loop is. A timer of the
// test's own, started later, therefore marks the end of the allowed span without any limit on measured time.
TEST(QtScheduler, workIsNeverEarlyAndRunsBeforeTimersThatAreDueLater) {
    constexpr double wanted = 1.0;
    constexpr int latest = 1010;
    constexpr int phases = 25;
    QtScheduler scheduler;
    struct Run {
        std::unique_ptr<ScheduledTask> once;
        std::unique_ptr<ScheduledTask> repeated;
        QTimer limit;
        double started = 0;
        std::optional<double> onceAfter;
        std::optional<double> repeatedAfter;
        bool inTime = false;
    };
    std::array<Run, phases> runs;
    int ended = 0;
    for (Run& run : runs) {
        run.started = scheduler.now();
        run.once =
            scheduler.after(wanted, [&scheduler, &run] { run.onceAfter = scheduler.now() - run.started; });
        run.repeated = scheduler.every(wanted, [&scheduler, &run] {
            run.repeatedAfter = run.repeatedAfter.value_or(scheduler.now() - run.started);
        });
        run.limit.setSingleShot(true);
        run.limit.setTimerType(Qt::PreciseTimer);
        QObject::connect(&run.limit, &QTimer::timeout, &run.limit, [&run, &ended] {
            run.inTime = run.onceAfter && run.repeatedAfter;
            ++ended;
        });
        run.limit.start(latest);
        // A coarse timer is rounded to some moment that depends on when it starts.
        std::this_thread::sleep_for(std::chrono::milliseconds(7));
    }
    ASSERT_TRUE(eventually([&] { return ended == phases; }));
    for (const Run& run : runs) {
        EXPECT_TRUE(run.inTime);
        EXPECT_GE(run.onceAfter.value_or(wanted), wanted);
        EXPECT_GE(run.repeatedAfter.value_or(wanted), wanted);
    }
}

TEST(QtScheduler, fractionsOfAMillisecondAreNotCutOff) {
    QtScheduler scheduler;
    for (int run = 0; run < 20; ++run) {
        const double started = scheduler.now();
        std::optional<double> after;
        const auto task = scheduler.after(0.0014, [&] { after = scheduler.now() - started; });
        ASSERT_TRUE(eventually([&] { return after.has_value(); }));
        EXPECT_GE(*after, 0.0014);
    }
}

TEST(QtScheduler, aTaskMayEndItself) {
    QtScheduler scheduler;
    int ran = 0;
    std::unique_ptr<ScheduledTask> task;
    task = scheduler.every(0, [&] {
        task.reset();
        ++ran;
    });
    EXPECT_TRUE(eventually([&] { return ran == 1; }));
    bool later = false;
    const auto end = scheduler.after(0.02, [&] { later = true; });
    EXPECT_TRUE(eventually([&] { return later; }));
    EXPECT_EQ(ran, 1);
}

TEST(QtScheduler, workersReturnToTheMainThread) {
    QtScheduler scheduler;
    Qt::HANDLE worker = nullptr;
    Qt::HANDLE returned = nullptr;
    scheduler.onWorker([&]() -> std::function<void()> {
        worker = QThread::currentThreadId();
        return [&] { returned = QThread::currentThreadId(); };
    });
    EXPECT_TRUE(eventually([&] { return returned != nullptr; }));
    EXPECT_EQ(returned, QThread::currentThreadId());
    EXPECT_NE(worker, returned);
}

TEST(QtScheduler, resultsForASchedulerThatIsGoneAreDropped) {
    std::atomic<bool> go = false;
    std::atomic<bool> over = false;
    bool delivered = false;
    {
        QtScheduler scheduler;
        scheduler.onWorker([&]() -> std::function<void()> {
            while (!go) {
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
            over = true;
            return [&] { delivered = true; };
        });
        // Ends without it: hanging work is not waited for.
    }
    EXPECT_FALSE(over);
    go = true;
    EXPECT_TRUE(eventually([&] { return over.load(); }));
    QCoreApplication::processEvents();
    EXPECT_FALSE(delivered);
}

} // namespace
} // namespace quillary
