#include "platform/linux/Launcher.h"
#include "tests/fake/ManualScheduler.h"
#include "tests/linux/LinesLog.h"
#include "tests/linux/World.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillary::test {

namespace {

using Strings = std::vector<std::string>;

class LauncherTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        output = World::home() / "output";
        // The line break comes last and at once: until it is there the test waits.
        writeScript(World::programs() / "report", "{ printf '[%s]' \"$@\"; echo; } > " + output.string() +
                                                      ".part\nmv " + output.string() + ".part " +
                                                      output.string());
    }

    void finish() {
        while (scheduler.finishWork()) {
        }
    }

    std::string launched(const std::string& entry, const Strings& files = {}) {
        launcher.launch(entry, files);
        finish();
        return waitForLine(output);
    }

    void reportCommand(const std::string& command) const {
        writeScript(World::programs() / "report", "{ " + command + "; } > " + output.string() + ".part\nmv " +
                                                      output.string() + ".part " + output.string());
    }

    std::filesystem::path output;
    ManualScheduler scheduler;
    LinesLog log;
    Launcher launcher{scheduler, log};
};

TEST_F(LauncherTest, fieldCodesAreExpanded) {
    const auto entry =
        install("codes.desktop", "Name=Codes\nName[de]=Kennungen\nIcon=pic\nExec=report %F %i %c %k 100%%");
    const auto one = (World::home() / "a b.txt").string();
    EXPECT_EQ(launched(entry, {one, "/tmp/x;$(id)"}),
              "[" + one + "][/tmp/x;$(id)][--icon][pic][Kennungen][" + entry + "][100%]\n");
    EXPECT_EQ(log.lines, Strings());
}

// Local files are handed over as paths, as GIO does for programs that take URIs but may not read them.
TEST_F(LauncherTest, localFilesAreHandedOverToProgramsThatTakeUris) {
    const auto entry = install("uris.desktop", "Name=Uris\nExec=report %U");
    EXPECT_EQ(launched(entry, {"/tmp/a b", "/tmp/c"}), "[/tmp/a b][/tmp/c]\n");
}

TEST_F(LauncherTest, singleFileIsHandedOver) {
    const auto entry = install("file.desktop", "Name=File\nExec=report %f");
    EXPECT_EQ(launched(entry, {"/tmp/a b"}), "[/tmp/a b]\n");
    std::filesystem::remove(output);
    const auto uri = install("uri.desktop", "Name=Uri\nExec=report %u end");
    EXPECT_EQ(launched(uri, {"/tmp/a b"}), "[/tmp/a b][end]\n");
}

TEST_F(LauncherTest, severalFilesStartSeveralTimesWhenOnlyOneFits) {
    writeScript(World::programs() / "report", "echo \"$1\" >> " + output.string());
    const auto entry = install("file.desktop", "Name=File\nExec=report %f");
    launcher.launch(entry, {"/tmp/a", "/tmp/b"});
    finish();
    for (int attempt = 0; attempt < 500 && readFile(output).size() < 14; ++attempt) {
        ::usleep(20000);
    }
    const auto text = readFile(output);
    EXPECT_TRUE(text == "/tmp/a\n/tmp/b\n" || text == "/tmp/b\n/tmp/a\n") << text;
}

TEST_F(LauncherTest, shellTextIsNoCommand) {
    const auto entry = install("shell.desktop", "Name=Shell\nExec=report \"\\$(touch /tmp/x)\" ; echo");
    EXPECT_EQ(launched(entry), "[$(touch /tmp/x)][;][echo]\n");
}

TEST_F(LauncherTest, workingFolderIsTheEntrys) {
    reportCommand("pwd");
    const auto entry = install("path.desktop", "Name=Path\nExec=report\nPath=" + World::userData().string());
    EXPECT_EQ(launched(entry), World::userData().string() + "\n");
}

TEST_F(LauncherTest, terminalRunsTheProgram) {
    writeScript(World::programs() / "xterm", "shift\nexec \"$@\"");
    for (const auto* other :
         {"gnome-terminal", "mate-terminal", "xfce4-terminal", "konsole", "xdg-terminal-exec"}) {
        if (std::filesystem::exists(std::filesystem::path("/usr/bin") / other)) {
            GTEST_SKIP() << "a real " << other << " would come before the test's";
        }
    }
    const auto entry = install("term.desktop", "Name=Term\nExec=report in\nTerminal=true");
    EXPECT_EQ(launched(entry), "[in]\n");
}

TEST_F(LauncherTest, programRunsApartFromThisOne) {
    reportCommand("cat /proc/$$/stat | cut -d' ' -f1,4,6 | tr '\\n' ' '; readlink /proc/$$/fd/0 "
                  "/proc/$$/fd/2 | tr '\\n' ' '; "
                  "ls /proc/$$/fd | tr '\\n' ' '; echo");
    const auto entry = install("apart.desktop", "Name=Apart\nExec=report");
    const int leaked = ::open("/dev/null", O_RDONLY); // NOLINT(android-cloexec-open): the leak is the point
    ASSERT_GE(leaked, 3);
    const auto text = launched(entry);
    ::close(leaked);
    std::istringstream words(text);
    long pid = 0;
    long parent = 0;
    long session = 0;
    std::string input;
    std::string errors;
    words >> pid >> parent >> session >> input >> errors;
    EXPECT_GT(pid, 0);
    EXPECT_NE(parent, ::getpid());
    EXPECT_NE(session, ::getsid(0));
    EXPECT_EQ(input, "/dev/null");
    EXPECT_EQ(errors, "/dev/null");
    EXPECT_EQ(text.find(" " + std::to_string(leaked) + " "), std::string::npos) << text;
    // No child is left to wait for.
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

TEST_F(LauncherTest, environmentIsThatOfAStartByTheDesktop) {
    ::setenv("QY_SNAPSHOT_DIR", "/tmp/x", 1);
    ::setenv("NOTIFY_SOCKET", "/tmp/y", 1);
    ::setenv("KEPT", "yes", 1);
    reportCommand("echo \"[$QY_SNAPSHOT_DIR][$NOTIFY_SOCKET][$KEPT][$GIO_LAUNCHED_DESKTOP_FILE]"
                  "[$([ \"$GIO_LAUNCHED_DESKTOP_FILE_PID\" = $$ ] && echo own)][$DESKTOP_STARTUP_ID]\"");
    const auto entry = install("env.desktop", "Name=Env\nExec=report\nStartupNotify=true");
    const auto text = launched(entry);
    ::unsetenv("QY_SNAPSHOT_DIR");
    ::unsetenv("NOTIFY_SOCKET");
    ::unsetenv("KEPT");
    EXPECT_TRUE(
        text.starts_with("[][][yes][" + entry + "][own][quillary-" + std::to_string(::getpid()) + "-"))
        << text;
    EXPECT_NE(text.find("_TIME"), std::string::npos) << text;
    EXPECT_EQ(text.find("_TIME0"), std::string::npos) << text;
}

TEST_F(LauncherTest, whatCannotStartIsOneLineOfTheLog) {
    const Strings broken = {
        install("missing.desktop", "Name=Missing\nExec=surely-not-there"),
        install("try.desktop", "Name=Try\nExec=report\nTryExec=surely-not-there"),
        install("garbage.desktop", "\xff\xfe no entry"),
        install("hidden.desktop", "Name=Hidden\nExec=report\nHidden=true"),
        install("quote.desktop", "Name=Quote\nExec=\"report"),
        install("folder.desktop", "Name=Folder\nExec=report\nPath=/nowhere/at/all"),
    };
    for (const auto& entry : broken) {
        log.lines.clear();
        launcher.launch(entry);
        finish();
        ASSERT_EQ(log.lines.size(), 1U) << entry;
        EXPECT_TRUE(log.lines[0].starts_with("Quillary: could not launch ")) << log.lines[0];
    }
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(LauncherTest, documentsOpenWithTheirDefaultApplication) {
    install("viewer.desktop", "Name=Viewer\nExec=report viewer %f\nMimeType=text/plain;");
    install("files.desktop", "Name=Files\nExec=report files %f\nMimeType=inode/directory;");
    associate({{"text/plain", "viewer.desktop"}, {"inode/directory", "files.desktop"}});
    writeFile(World::home() / "notes.txt", "text\n");
    launcher.open((World::home() / "notes.txt").string());
    finish();
    EXPECT_EQ(waitForLine(output), "[viewer][" + (World::home() / "notes.txt").string() + "]\n");
    std::filesystem::remove(output);
    launcher.open(World::home().string());
    finish();
    EXPECT_EQ(waitForLine(output), "[files][" + World::home().string() + "]\n");
    EXPECT_EQ(log.lines, Strings());
}

TEST_F(LauncherTest, whatCannotBeOpenedIsOneLineOfTheLog) {
    launcher.open("/nowhere/at/all");
    finish();
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_EQ(log.lines[0], "Quillary: could not open /nowhere/at/all: it does not exist");
    writeFile(World::home() / "odd.quillarytest", "x");
    launcher.open((World::home() / "odd.quillarytest").string());
    finish();
    ASSERT_EQ(log.lines.size(), 2U);
    EXPECT_TRUE(log.lines[1].starts_with("Quillary: could not open ")) << log.lines[1];
}

TEST_F(LauncherTest, revealingWithoutAFileManagerServiceOpensTheFolder) {
    install("files.desktop", "Name=Files\nExec=report files %f\nMimeType=inode/directory;");
    associate({{"inode/directory", "files.desktop"}});
    writeFile(World::home() / "notes.txt", "text\n");
    launcher.reveal((World::home() / "notes.txt").string());
    finish();
    EXPECT_EQ(waitForLine(output), "[files][" + World::home().string() + "]\n");
}

} // namespace

} // namespace quillary::test
