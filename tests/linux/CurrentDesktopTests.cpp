#include "platform/linux/CurrentDesktop.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillary::test {

namespace {

using Strings = std::vector<std::string>;

TEST(CurrentDesktop, isEachOfItsNamesAndNoPartOfOne) {
    const CurrentDesktop desktop("ubuntu:GNOME");
    EXPECT_EQ(desktop.names(), (Strings{"ubuntu", "GNOME"}));
    EXPECT_TRUE(desktop.is("ubuntu"));
    EXPECT_TRUE(desktop.is("GNOME"));
    EXPECT_FALSE(desktop.is("GNO"));
    EXPECT_FALSE(desktop.is("gnome"));
    EXPECT_FALSE(desktop.is("ubuntu:GNOME"));
    EXPECT_FALSE(CurrentDesktop("GNOME-Flashback").is("GNOME"));
}

TEST(CurrentDesktop, emptyNamesAreSkipped) {
    EXPECT_EQ(CurrentDesktop("").names(), Strings());
    EXPECT_EQ(CurrentDesktop(":::").names(), Strings());
    EXPECT_EQ(CurrentDesktop(":KDE::X:").names(), (Strings{"KDE", "X"}));
    EXPECT_FALSE(CurrentDesktop(":").is(""));
}

TEST(CurrentDesktop, ofTheSessionIsWhatTheEnvironmentNames) {
    ::setenv("XDG_CURRENT_DESKTOP", "X-Cinnamon", 1);
    EXPECT_EQ(CurrentDesktop::ofSession().names(), Strings{"X-Cinnamon"});
    ::unsetenv("XDG_CURRENT_DESKTOP");
    EXPECT_EQ(CurrentDesktop::ofSession().names(), Strings());
}

} // namespace

} // namespace quillary::test
