#include "platform/linux/windows/ProcessFacts.h"
#include "tests/linux/World.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace quillary::test {

namespace {

using namespace std::string_literals;

class ProcessFactsTest : public WorldTest {
protected:
    static std::filesystem::path process(int pid) {
        auto folder = World::home() / "proc" / std::to_string(pid);
        std::filesystem::create_directories(folder);
        return folder;
    }

    static ProcessFacts read(int pid) { return ProcessReader(World::home() / "proc").read(pid); }
};

TEST_F(ProcessFactsTest, allFactsAreRead) {
    const auto folder = process(7);
    std::filesystem::create_symlink("/usr/bin/gimp-2.10 (deleted)", folder / "exe");
    writeFile(folder / "cmdline", "gimp\0a.png\0"s);
    const std::string group = "/user.slice/snap.gimp.gimp-01234567-0123-0123-0123-0123456789ab.scope";
    writeFile(folder / "cgroup", "0::" + group + "\n");
    writeFile(
        folder / "environ",
        "A=b\0GIO_LAUNCHED_DESKTOP_FILE=/x/gimp.desktop\0GIO_LAUNCHED_DESKTOP_FILE_PID=7\0SNAP_INSTANCE_NAME=gimp\0"s);
    const auto facts = read(7);
    EXPECT_EQ(facts.pid, 7);
    EXPECT_EQ(facts.executable, "/usr/bin/gimp-2.10");
    EXPECT_EQ(facts.arguments, (std::vector<std::string>{"gimp", "a.png"}));
    EXPECT_EQ(facts.controlGroup, group);
    EXPECT_EQ(facts.launchedEntry, "/x/gimp.desktop");
    EXPECT_EQ(facts.launchedEntryPid, 7);
    EXPECT_EQ(facts.sandbox, "gimp");
}

TEST_F(ProcessFactsTest, sandboxTellsItsFlatpakId) {
    writeFile(process(7) / "root/.flatpak-info", "[Application]\nname=org.gimp.GIMP\nruntime=x\n");
    EXPECT_EQ(read(7).sandbox, "org.gimp.GIMP");
    writeFile(process(8) / "root/.flatpak-info", "no key file");
    EXPECT_EQ(read(8).sandbox, "");
}

TEST_F(ProcessFactsTest, snapCountsWhereTheControlGroupNamesItToo) {
    struct Case {
        std::string name;
        std::string group;
        std::string sandbox;
    };
    const std::string uuid = "01234567-0123-0123-0123-0123456789ab";
    int pid = 10;
    for (const auto& [name, group, sandbox] : std::vector<Case>{
             {"ide", "/app.slice/snap.ide.ide-" + uuid + ".scope", "ide"},
             {"ide", "/app.slice/snap.ide.ide." + uuid + ".scope", "ide"},
             {"ide", "/app.slice/snap.ide.ide-" + uuid + ".scope/inner", "ide"},
             {"ide", "/system.slice/snap.ide.daemon.service", "ide"},
             {"ide_two", "/app.slice/snap.ide_two.ide-" + uuid + ".scope", "ide_two"},
             {"big-ide", "/app.slice/snap.big\\x2dide.ide-" + uuid + ".scope", "big-ide"},
             {"big-ide", "/app.slice/snap.big-ide.ide-" + uuid + ".scope", "big-ide"},
             {"ide", "/app.slice/snap.ide_two.ide-" + uuid + ".scope", ""},
             {"ide", "/app.slice/snap.chat.chat-" + uuid + ".scope", ""},
             {"ide", "/app.slice/app-gnome-browser-7.scope", ""},
             {"ide", "/app.slice/snap.ide.ide-" + uuid + ".scope/app-quillary-browser-7.scope", ""},
             {"ide", "/app.slice/snap.ide.slice/x", ""},
             {"ide", "/app.slice/snap.ide", ""},
             {"ide", "/session-2.scope", ""},
             {"ide", "", ""},
         }) {
        const auto folder = process(++pid);
        writeFile(folder / "cgroup", "0::" + group + "\n");
        writeFile(folder / "environ", "SNAP_INSTANCE_NAME=" + name + '\0');
        EXPECT_EQ(read(pid).sandbox, sandbox) << group;
    }
}

TEST_F(ProcessFactsTest, systemdsOwnHierarchyStandsBeforeAnEmptyUnifiedOne) {
    writeFile(process(7) / "cgroup", "9:name=systemd:/user.slice/app-a-1.scope\n8:pids:/other\n0::/\n");
    EXPECT_EQ(read(7).controlGroup, "/user.slice/app-a-1.scope");
}

TEST_F(ProcessFactsTest, processThatIsGoneHasNoFacts) {
    ProcessFacts nothing;
    nothing.pid = 12345;
    EXPECT_EQ(read(12345), nothing);
    EXPECT_EQ(read(0), ProcessFacts());
    EXPECT_EQ(read(-1), ProcessFacts());
}

TEST_F(ProcessFactsTest, textsThatAreNotUtf8AreDropped) {
    const auto folder = process(7);
    std::filesystem::create_symlink("/usr/bin/\xff\xfe", folder / "exe");
    writeFile(folder / "cmdline", "\xff\0ok\0"s);
    writeFile(folder / "cgroup", "0::/\xff\n");
    writeFile(folder / "environ", "GIO_LAUNCHED_DESKTOP_FILE=\xff\0SNAP_INSTANCE_NAME=\xff\0"s);
    const auto facts = read(7);
    EXPECT_EQ(facts.executable, "");
    EXPECT_EQ(facts.arguments, (std::vector<std::string>{"", "ok"}));
    EXPECT_EQ(facts.controlGroup, "");
    EXPECT_EQ(facts.launchedEntry, "");
    EXPECT_EQ(facts.sandbox, "");
}

TEST_F(ProcessFactsTest, endlessFilesAreCut) {
    const auto folder = process(7);
    std::string words;
    for (int index = 0; index < 100000; ++index) {
        words += "word\0"s;
    }
    writeFile(folder / "cmdline", words);
    writeFile(folder / "cgroup", "0::/snap.late.late.scope\n");
    writeFile(folder / "environ", std::string(3U << 20U, 'x') + "\0SNAP_INSTANCE_NAME=late\0"s);
    const auto facts = read(7);
    EXPECT_EQ(facts.arguments.size(), 64U);
    EXPECT_EQ(facts.sandbox, "");
}

TEST_F(ProcessFactsTest, pidOfTheLauncherMustBeANumber) {
    writeFile(process(7) / "environ", "GIO_LAUNCHED_DESKTOP_FILE_PID=99999999999999999999999\0"s);
    EXPECT_EQ(read(7).launchedEntryPid, 0);
}

TEST_F(ProcessFactsTest, thisProcessIsReadFromTheRealFiles) {
    const auto facts = ProcessReader().read(::getpid());
    EXPECT_EQ(facts.executable, std::filesystem::read_symlink("/proc/self/exe").string());
    EXPECT_FALSE(facts.arguments.empty());
}

} // namespace

} // namespace quillary::test
