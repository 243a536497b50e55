#include "platform/linux/bus/BoundedCall.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <memory>
#include <string>

namespace quillary::test {

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

TEST(TimeLimit, whatIsLeftShrinksToZeroAndNoFurther) {
    const TimeLimit limit(seconds(60));
    EXPECT_LE(limit.left(), seconds(60));
    EXPECT_GT(limit.left(), seconds(50));
    EXPECT_EQ(TimeLimit(milliseconds(-5)).left(), milliseconds(0));
}

TEST(BoundedCall, aCallThatReturnsGivesItsResult) {
    const BoundedCall<std::string> call([](GCancellable* /*cancellable*/) { return std::string("answer"); });
    const auto* result = call.resultWithin(TimeLimit(seconds(10)));
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(*result, "answer");
    // Once it is there, it needs no time.
    EXPECT_EQ(call.resultWithin(TimeLimit(milliseconds(0))), result);
}

TEST(BoundedCall, waitingForACallThatDoesNotReturnEndsWithTheLimit) {
    const auto release = std::make_shared<std::promise<void>>();
    const BoundedCall<int> call([release](GCancellable* /*cancellable*/) {
        release->get_future().wait();
        return 7;
    });
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(call.resultWithin(TimeLimit(milliseconds(50))), nullptr);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, milliseconds(49));
    EXPECT_FALSE(call.returnsWithin(TimeLimit(milliseconds(0))));
    // A later wait may still see it return.
    release->set_value();
    const auto* result = call.resultWithin(TimeLimit(seconds(10)));
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(*result, 7);
}

TEST(BoundedCall, itIsNotCancelledWhileSomebodyMayWaitForIt) {
    const BoundedCall<bool> call(
        [](GCancellable* cancellable) { return g_cancellable_is_cancelled(cancellable) != 0; });
    const auto* cancelled = call.resultWithin(TimeLimit(seconds(10)));
    ASSERT_NE(cancelled, nullptr);
    EXPECT_FALSE(*cancelled);
}

TEST(BoundedCall, anAbandonedCallIsCancelledAndOutlivesItsOwner) {
    const auto ended = std::make_shared<std::promise<void>>();
    auto end = ended->get_future();
    {
        const BoundedCall<void> call([ended](GCancellable* cancellable) {
            GPollFD waiting = {};
            ASSERT_TRUE(g_cancellable_make_pollfd(cancellable, &waiting));
            g_poll(&waiting, 1, 30000);
            g_cancellable_release_fd(cancellable);
            ended->set_value();
        });
        EXPECT_FALSE(call.returnsWithin(TimeLimit(milliseconds(20))));
    }
    EXPECT_EQ(end.wait_for(seconds(10)), std::future_status::ready);
}

} // namespace

} // namespace quillary::test
