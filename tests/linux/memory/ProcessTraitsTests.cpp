#include "platform/linux/memory/ProcessTraits.h"

#include <gtest/gtest.h>

namespace quillary::test {

namespace {

TEST(ProcessTraits, folderOfAnApplicationIsWhereItWasInstalled) {
    EXPECT_EQ(installFolder("/opt/google/chrome/chrome_crashpad_handler"), "/opt/google/chrome");
    EXPECT_EQ(installFolder("/usr/lib/chromium/chromium"), "/usr/lib/chromium");
    EXPECT_EQ(installFolder("/usr/share/code/code"), "/usr/share/code");
    EXPECT_EQ(installFolder("/opt/x/bin/x"), "/opt/x");
    EXPECT_EQ(installFolder("/home/ann/.local/share/Steam/ubuntu12_32/steam"),
              "/home/ann/.local/share/Steam/ubuntu12_32");
    EXPECT_EQ(installFolder("/home/ann/Downloads/godot/godot"), "/home/ann/Downloads/godot");
    EXPECT_EQ(installFolder("/home/ann/tools/Downloads/tool"), "/home/ann/tools/Downloads");
    EXPECT_EQ(installFolder("/tmp/.mount_Foo1234/foo"), "/tmp/.mount_Foo1234");
    EXPECT_EQ(installFolder("/snap/firefox/123/usr/lib/firefox/firefox"),
              "/snap/firefox/123/usr/lib/firefox");
}

TEST(ProcessTraits, sharedFoldersSayNothing) {
    for (const char* path : {"/usr/bin/xterm",
                             "/bin/ls",
                             "/usr/local/bin/tool",
                             "/usr/games/mines",
                             "/usr/libexec/gvfsd",
                             "/usr/sbin/x",
                             "/usr/lib/helper",
                             "/usr/lib/x86_64-linux-gnu/helper",
                             "/home/ann/bin/tool",
                             "/home/ann/.local/bin/tool",
                             "/home/ann/tool",
                             "/home/ann/Downloads/tool",
                             "/home/ann/Downloads/bin/tool",
                             "/home/ann/Desktop/tool",
                             "/home/ann/Applications/tool",
                             "/home/ann/opt/tool",
                             "/root/Downloads/tool",
                             "/root/tool",
                             "/root/bin/tool",
                             "/app/bin/flatpaked",
                             "/tool",
                             "/tmp/tool",
                             "relative/tool",
                             "tool",
                             "",
                             "/",
                             "/snap/bin/x",
                             "/opt/tool"}) {
        EXPECT_EQ(installFolder(path), "") << path;
    }
}

TEST(ProcessTraits, interpretersSayNothingOfWhatTheyRun) {
    EXPECT_EQ(installFolder("/opt/venv/bin/python3.11"), "");
    EXPECT_EQ(installFolder("/usr/lib/jvm/java-17/bin/java"), "");
    EXPECT_EQ(installFolder("/usr/lib/electron25/electron"), "");
}

TEST(ProcessTraits, launchedEntryCountsForTheLaunchedProcessAlone) {
    ProcessFacts facts;
    facts.pid = 7;
    facts.executable = "/opt/x/x";
    facts.controlGroup = "/user.slice/x.scope";
    facts.sandbox = "org.x";
    facts.launchedEntry = "/a.desktop";
    facts.launchedEntryPid = 7;
    EXPECT_EQ(traitsOf(facts), (ProcessTraits{"/opt/x", "/user.slice/x.scope", "/a.desktop", "org.x"}));
    facts.launchedEntryPid = 6;
    EXPECT_EQ(traitsOf(facts).launchedEntry, "");
}

} // namespace

} // namespace quillary::test
