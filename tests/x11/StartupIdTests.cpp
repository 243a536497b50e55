#include "platform/x11/StartupId.h"

#include <gtest/gtest.h>

namespace quillary {

TEST(StartupId, endsWithTheMomentOfTheUsersAction) {
    EXPECT_EQ(StartupId::time("launcher-4711-host_TIME12345"), 12345U);
    EXPECT_EQ(StartupId::time("a_TIME1_TIME2"), 2U);
    EXPECT_EQ(StartupId::time("_TIME4294967295"), 4294967295U);
}

TEST(StartupId, withoutAWholeNumberThereIsNoMoment) {
    for (const auto* id :
         {"", "launcher", "a_TIME", "a_TIME-1", "a_TIME12x", "a_TIME 12", "a_TIME4294967296", "a_time12"}) {
        EXPECT_EQ(StartupId::time(id), 0U) << id;
    }
}

} // namespace quillary
