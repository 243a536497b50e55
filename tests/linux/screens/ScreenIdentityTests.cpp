#include "platform/linux/screens/ScreenIdentity.h"

#include <gtest/gtest.h>

namespace quillary {

TEST(ScreenIdentity, displayNumberIsFnv1a) {
    EXPECT_EQ(ScreenIdentity::displayNumber(""), 0x811C9DC5U);
    EXPECT_EQ(ScreenIdentity::displayNumber("a"), 0xE40C292CU);
    EXPECT_EQ(ScreenIdentity::displayNumber("foobar"), 0xBF9CF968U);
}

TEST(ScreenIdentity, uuidIsAVersion5InUpperCase) {
    const auto uuids = ScreenIdentity::uuids({{"DP-1", "DEL/1/2/"}});
    ASSERT_EQ(uuids.size(), 1U);
    ASSERT_TRUE(uuids[0]);
    // The value must never change: settings hold it.
    EXPECT_EQ(*uuids[0], "97EBDAA2-1670-5BF3-A288-ACDF0D0E092A");
}

TEST(ScreenIdentity, theConnectorDoesNotMatter) {
    EXPECT_EQ(ScreenIdentity::uuids({{"DP-1", "DEL/1/2/"}}), ScreenIdentity::uuids({{"HDMI-2", "DEL/1/2/"}}));
}

TEST(ScreenIdentity, withoutIdentityThereIsNoUuid) {
    const auto uuids = ScreenIdentity::uuids({{"DP-1", std::nullopt}, {"DP-2", std::nullopt}});
    EXPECT_EQ(uuids, (std::vector<std::optional<std::string>>{std::nullopt, std::nullopt}));
}

TEST(ScreenIdentity, twinsDifferByTheirConnectors) {
    const auto uuids =
        ScreenIdentity::uuids({{"DP-1", "DEL/1/2/"}, {"DP-2", "DEL/1/2/"}, {"DP-3", "DEL/1/3/"}});
    ASSERT_EQ(uuids.size(), 3U);
    EXPECT_NE(uuids[0], uuids[1]);
    EXPECT_EQ(uuids[2], ScreenIdentity::uuids({{"DP-3", "DEL/1/3/"}})[0]) << "others keep theirs";
    const auto swapped = ScreenIdentity::uuids({{"DP-2", "DEL/1/2/"}, {"DP-1", "DEL/1/2/"}});
    EXPECT_EQ(swapped[0], uuids[1]) << "the order does not matter";
}

} // namespace quillary
