#include "platform/linux/launch/StartupMessage.h"
#include "tests/linux/launch/LauncherFixture.h"

namespace quillary::test {

namespace {

/// The id in a message of the protocol.
std::string idOf(const std::string& message) {
    const auto begin = message.find("ID=\"") + 4;
    return message.substr(begin, message.find('"', begin) - begin);
}

class StartupTest : public LauncherTest {
protected:
    void SetUp() override {
        LauncherTest::SetUp();
        reportCommand("echo \"$DESKTOP_STARTUP_ID $XDG_ACTIVATION_TOKEN\"");
        startups.time = 123456;
    }
};

TEST_F(StartupTest, entryThatAsksForItIsToldAndItsProgramGetsTheId) {
    const auto entry =
        install("notify.desktop", "Name=Notify\nName[de]=Meldung \"x\"\nIcon=pic\nExec=\"report\" "
                                  "%U\nStartupNotify=true\nStartupWMClass=Wm");
    const auto ids = launched(entry);
    ASSERT_EQ(startups.messages.size(), 1U);
    const auto id = idOf(startups.messages[0]);
    EXPECT_TRUE(id.starts_with("quillary-")) << id;
    EXPECT_TRUE(id.ends_with("_TIME123456")) << id;
    EXPECT_EQ(startups.messages[0], "new: ID=\"" + id +
                                        R"(" SCREEN="3" TIMESTAMP="123456" NAME="Meldung \"x\"")" +
                                        R"( WMCLASS="Wm" BIN="report" ICON="pic" APPLICATION_ID=")" + entry +
                                        R"(" DESCRIPTION="Meldung \"x\"")");
    EXPECT_EQ(ids, id + " " + id + "\n");
}

TEST_F(StartupTest, entryThatNamesItsWindowIsToldToo) {
    const auto ids = launched(install("class.desktop", "Name=Class\nExec=report\nStartupWMClass=Wm"));
    ASSERT_EQ(startups.messages.size(), 1U);
    const auto id = idOf(startups.messages[0]);
    EXPECT_NE(startups.messages[0].find(" WMCLASS=\"Wm\""), std::string::npos) << startups.messages[0];
    EXPECT_EQ(ids, id + " " + id + "\n");
}

TEST_F(StartupTest, entryThatDoesNotAskIsNotTold) {
    for (const auto* lines :
         {"Name=A\nExec=report", "Name=A\nExec=report\nStartupNotify=false\nStartupWMClass=Wm"}) {
        EXPECT_EQ(launched(install("quiet.desktop", lines)), " \n") << lines;
        std::filesystem::remove(output);
    }
    EXPECT_EQ(startups.messages, Strings());
}

TEST_F(StartupTest, entryInATerminalIsNotKnownByItsWindow) {
    writeScript(World::programs() / "xterm", "shift\nexec \"$@\"");
    launched(install("term.desktop", "Name=A\nExec=report\nTerminal=true\nStartupWMClass=Wm"));
    EXPECT_EQ(startups.messages, Strings());
}

TEST_F(StartupTest, failedStartIsTakenBack) {
    for (const auto* lines : {"StartupNotify=true", "StartupWMClass=Wm"}) {
        startups.messages.clear();
        launcher.launch(
            install("fails.desktop", std::string("Name=A\nExec=report\nPath=/nowhere/at/all\n") + lines));
        finish();
        ASSERT_EQ(startups.messages.size(), 2U) << lines;
        EXPECT_EQ(startups.messages[1], "remove: ID=\"" + idOf(startups.messages[0]) + "\"");
    }
}

TEST_F(StartupTest, refusedEntryIsNotTold) {
    launcher.launch(install("missing.desktop", "Name=A\nExec=surely-not-there\nStartupNotify=true"));
    finish();
    EXPECT_EQ(startups.messages, Strings());
}

TEST_F(StartupTest, eachProgramOfOneLaunchHasItsSequence) {
    const auto entry = install("file.desktop", "Name=A\nExec=report %f\nStartupNotify=true");
    launcher.launch(entry, {"/tmp/a", "/tmp/b"});
    finish();
    ASSERT_EQ(startups.messages.size(), 2U);
    EXPECT_NE(idOf(startups.messages[0]), idOf(startups.messages[1]));
}

TEST_F(StartupTest, whenTheUsersTimeIsUnknownTheClockIsAsked) {
    startups.time = 0;
    launched(install("notify.desktop", "Name=A\nExec=report\nStartupNotify=true"));
    ASSERT_EQ(startups.messages.size(), 1U);
    EXPECT_TRUE(idOf(startups.messages[0]).ends_with("_TIME4711")) << startups.messages[0];
}

TEST(StartupMessage, textsAreQuotedOnOneLine) {
    EXPECT_EQ(startupBeginning({.id = "i", .name = "a\\b\n\"ü\x7f", .screen = 0, .time = 7}),
              R"(new: ID="i" SCREEN="0" TIMESTAMP="7" NAME="a\\b \"ü " DESCRIPTION="a\\b \"ü ")");
    EXPECT_EQ(startupEnd("a b"), "remove: ID=\"a b\"");
}

TEST(StartupMessage, aMessageMayHaveFourThousandBytesAndNoMore) {
    const auto with = [](std::size_t length) {
        return startupBeginning({.id = "i", .applicationId = std::string(length, 'p'), .time = 7});
    };
    const auto others = with(1).size() - 1;
    EXPECT_EQ(with(4000 - others).size(), 4000U);
    EXPECT_EQ(with(4001 - others), R"(new: ID="i" SCREEN="0" TIMESTAMP="7")");
    // What still fits behind a text that was left out is kept.
    EXPECT_EQ(startupBeginning({.id = "i", .name = "n", .applicationId = std::string(4001, 'p'), .time = 7}),
              R"(new: ID="i" SCREEN="0" TIMESTAMP="7" NAME="n" DESCRIPTION="n")");
}

TEST(StartupMessage, longAndMalformedTextsAreLeftOut) {
    EXPECT_EQ(startupBeginning({.id = "i",
                                .name = std::string(5000, 'n'),
                                .icon = "pic",
                                .binary = "\xff",
                                .windowClass = std::string(5000, '"'),
                                .time = 7}),
              R"(new: ID="i" SCREEN="0" TIMESTAMP="7" ICON="pic")");
}

} // namespace

} // namespace quillary::test
