#include "platform/qt/QtScheduler.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
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
