#include "tests/desktop/DesktopFixture.h"

#include <unistd.h>

namespace quillary::test {

namespace {

/// A server whose outputs have modes and can all be switched off; three icons that don't grow, 200 × 125.
class ModeTest : public DesktopFixture {
protected:
    ModeTest() : DesktopFixture(VirtualDisplay::Server::xorgDummy) {}

    void SetUp() override {
        if (::geteuid() != 0) {
            GTEST_SKIP() << "Xorg with the dummy driver runs as root only";
        }
        ASSERT_NO_FATAL_FAILURE(DesktopFixture::SetUp());
        const std::string firstKey = "3279883857";
        const std::string secondKey = "3263106238";
        const std::string options = R"("magnification":"off")";
        home.writeSettings(settingsJson({dockJson(firstKey, {"/a", "/b", "/c"}, options),
                                         dockJson(secondKey, {"/a", "/b", "/c"}, options)}));
        ASSERT_EQ(randr({"--output", "DUMMY0", "--mode", "1024x768"}), 0);
        startWithDocks(1);
    }
    int randr(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "xrandr");
        return display.run(arguments);
    }
    const QRect first{412, 643, 200, 125};
};

} // namespace

TEST_F(ModeTest, aDockFollowsTheModeOfItsScreen) {
    ASSERT_TRUE(standAt({first}));
    ASSERT_EQ(randr({"--output", "DUMMY0", "--mode", "800x600"}), 0);
    EXPECT_TRUE(standAt({QRect(300, 475, 200, 125)}));
    ASSERT_EQ(randr({"--output", "DUMMY0", "--mode", "1024x768"}), 0);
    EXPECT_TRUE(standAt({first}));
}

TEST_F(ModeTest, theSecondScreensDockFollowsItsModeToo) {
    ASSERT_EQ(randr({"--addmode", "DUMMY1", "1024x768"}), 0);
    ASSERT_EQ(randr({"--addmode", "DUMMY1", "800x600"}), 0);
    ASSERT_EQ(randr({"--output", "DUMMY1", "--mode", "1024x768", "--right-of", "DUMMY0"}), 0);
    EXPECT_TRUE(standAt({first, first.translated(1024, 0)}));
    ASSERT_EQ(randr({"--output", "DUMMY1", "--mode", "800x600"}), 0);
    EXPECT_TRUE(standAt({first, QRect(1324, 475, 200, 125)}));
    ASSERT_EQ(randr({"--output", "DUMMY1", "--off"}), 0);
    EXPECT_TRUE(standAt({first}));
}

TEST_F(ModeTest, withoutAnyScreenTheProgramWaitsForOne) {
    ASSERT_TRUE(standAt({first}));
    for (int i = 0; i < 5; ++i) {
        ASSERT_EQ(randr({"--output", "DUMMY0", "--off"}), 0);
        EXPECT_TRUE(standAt({})) << i;
        ASSERT_EQ(randr({"--output", "DUMMY0", "--mode", "1024x768"}), 0);
        EXPECT_TRUE(standAt({first})) << i;
    }
    EXPECT_TRUE(program.quit());
}

} // namespace quillary::test
