#include "tests/fake/ManualScheduler.h"

#include <gtest/gtest.h>

#include <string>

namespace quillary::test {
namespace {

TEST(ManualScheduler, runsWorkInTheOrderOfItsMoments) {
    ManualScheduler scheduler;
    std::string ran;
    const auto late = scheduler.after(2, [&] { ran += "late"; });
    const auto early = scheduler.after(1, [&] { ran += "early "; });
    scheduler.advance(1.5);
    EXPECT_EQ(ran, "early ");
    scheduler.advance(0.5);
    EXPECT_EQ(ran, "early late");
}

TEST(ManualScheduler, destroyingATaskTakesItBack) {
    ManualScheduler scheduler;
    bool ran = false;
    {
        const auto task = scheduler.after(1, [&] { ran = true; });
    }
    scheduler.advance(5);
    EXPECT_FALSE(ran);
    EXPECT_EQ(scheduler.pending(), 0U);
}

TEST(ManualScheduler, aTurnDoesNotRunWhatItPlanned) {
    ManualScheduler scheduler;
    int ran = 0;
    std::unique_ptr<ScheduledTask> second;
    const auto first = scheduler.after(0, [&] {
        ++ran;
        second = scheduler.after(0, [&] { ++ran; });
    });
    scheduler.advance(0);
    EXPECT_EQ(ran, 1);
    scheduler.advance(0);
    EXPECT_EQ(ran, 2);
}

TEST(ManualScheduler, repeatsUntilDestroyed) {
    ManualScheduler scheduler;
    int ran = 0;
    auto task = scheduler.every(4, [&] { ++ran; });
    scheduler.advance(12.5);
    EXPECT_EQ(ran, 3);
    task.reset();
    scheduler.advance(12);
    EXPECT_EQ(ran, 3);
}

} // namespace
} // namespace quillary::test
