#include "tests/linux/launch/LauncherFixture.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillary::test {

namespace {

TEST_F(LauncherTest, fieldCodesAreExpanded) {
    const auto entry =
        install("codes.desktop", "Name=Codes\nName[de]=Kennungen\nIcon=pic\nExec=report %F %i %c %k 100%%");
    const auto one = (World::home() / "a b.txt").string();
    EXPECT_EQ(launched(entry, {one, "/tmp/x;$(id)"}),
              "[" + one + "][/tmp/x;$(id)][--icon][pic][Kennungen][" + entry + "][100%]\n");
    EXPECT_EQ(log.lines, Strings());
}

// GIO passes local files as paths, also to programs that take URIs.
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
    // The program is not our child any more.
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
    const auto pipe = World::home() / "pipe.desktop";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const auto huge = std::string(2U << 20U, '#');
    const std::vector<std::pair<std::string, std::string>> broken = {
        {install("missing.desktop", "Name=A\nExec=surely-not-there"), "its program is not installed"},
        {install("try.desktop", "Name=A\nExec=report\nTryExec=surely-not-there"),
         "its TryExec is not installed"},
        {install("garbage.desktop", "\xff\xfe no entry"), "it is no valid entry of an application"},
        {install("empty.desktop", "Name=A\nExec="), "it is no valid entry of an application"},
        {install("nothing.desktop", "Name=A"), "it is no valid entry of an application"},
        {install("link.desktop", "Type=Link\nName=A\nURL=https://example.org"),
         "it is no valid entry of an application"},
        {install("huge.desktop", "Name=A\nExec=report\n" + huge), "it is no valid entry of an application"},
        {install("hidden.desktop", "Name=A\nExec=report\nHidden=true"), "the entry is hidden"},
        {pipe.string(), "it is no regular file"},
        {(World::home() / "gone.desktop").string(), "it does not exist"},
        {"/Applications/Mail.app", "it does not exist"},
    };
    for (const auto& [entry, reason] : broken) {
        log.lines.clear();
        launcher.launch(entry);
        finish();
        auto line = "Quillary: could not launch " + entry;
        line += ": " + reason;
        EXPECT_EQ(log.lines, Strings{line});
    }
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(LauncherTest, commandThatIsNoCommandIsOneLineOfTheLog) {
    for (const auto* command : {"\"report", "%f", "/", "/etc/passwd", "  ", "\"\"", "%", "$(report)"}) {
        log.lines.clear();
        const auto entry = install("odd.desktop", std::string("Name=Odd\nExec=") + command);
        launcher.launch(entry);
        finish();
        ASSERT_EQ(log.lines.size(), 1U) << command;
        EXPECT_TRUE(log.lines[0].starts_with("Quillary: could not launch " + entry + ": ")) << log.lines[0];
    }
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(LauncherTest, entryThatMayNotBeReadIsOneLineOfTheLog) {
    if (::geteuid() == 0) {
        GTEST_SKIP() << "root may read everything";
    }
    const auto entry = install("secret.desktop", "Name=Secret\nExec=report");
    std::filesystem::permissions(entry, std::filesystem::perms::none);
    launcher.launch(entry);
    finish();
    EXPECT_EQ(log.lines, Strings{"Quillary: could not launch " + entry + ": it may not be read"});
}

TEST_F(LauncherTest, controlCharactersStayInsideTheirArgument) {
    const auto entry = install("control.desktop", "Name=Control\nExec=report \"a\\nb\" \"c\x01\x1b[m\"");
    EXPECT_EQ(launched(entry), "[a\nb][c\x01\x1b[m]\n");
}

TEST_F(LauncherTest, nothingBehindANulReachesTheProgram) {
    const auto entry = install("nul.desktop", std::string("Name=N\nExec=report a") + '\0' + " b; report c");
    EXPECT_EQ(launched(entry), "[a]\n");
}

TEST_F(LauncherTest, linksInCirclesAreOneLineOfTheLog) {
    const auto link = World::home() / "circle.desktop";
    std::filesystem::create_symlink(link, link);
    launcher.launch(link.string());
    finish();
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_TRUE(log.lines[0].starts_with("Quillary: could not launch " + link.string() + ": "))
        << log.lines[0];
}

TEST_F(LauncherTest, deprecatedAndUnknownCodesAreDropped) {
    const auto entry = install("old.desktop", "Name=Old\nExec=report a %d %D %n %N %v %m %z b");
    EXPECT_EQ(launched(entry, {"/tmp/x"}).substr(0, 3), "[a]");
    EXPECT_EQ(log.lines, Strings());
}

TEST_F(LauncherTest, entryBehindALinkIsStarted) {
    const auto entry = install("real.desktop", "Name=Real\nExec=report %k");
    const auto link = World::home() / "link.desktop";
    std::filesystem::create_symlink(entry, link);
    EXPECT_EQ(launched(link.string()), "[" + link.string() + "]\n");
}

TEST_F(LauncherTest, withoutATerminalNothingRuns) {
    const std::string path = std::getenv("PATH");
    ::setenv("PATH", World::programs().c_str(), 1);
    const auto entry = install("term.desktop", "Name=Term\nExec=report\nTerminal=true");
    launcher.launch(entry);
    finish();
    ::setenv("PATH", path.c_str(), 1);
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_TRUE(log.lines[0].starts_with("Quillary: could not launch " + entry + ": ")) << log.lines[0];
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
    const auto opened = [this](const std::string& path) {
        log.lines.clear();
        launcher.open(path);
        finish();
        return log.lines;
    };
    EXPECT_EQ(opened("/nowhere/at/all"),
              Strings{"Quillary: could not open /nowhere/at/all: it does not exist"});
    const auto odd = (World::home() / "odd.quillarytest").string();
    writeFile(odd, "x");
    EXPECT_EQ(opened(odd).size(), 1U);
    EXPECT_TRUE(log.lines.at(0).starts_with("Quillary: could not open " + odd + ": ")) << log.lines[0];
    const auto pipe = (World::home() / "pipe").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(opened(pipe).size(), 1U);

    install("viewer.desktop", "Name=Viewer\nExec=report %f\nMimeType=text/plain;\nPath=/nowhere");
    associate({{"text/plain", "viewer.desktop"}});
    const auto notes = (World::home() / "notes.txt").string();
    writeFile(notes, "text\n");
    EXPECT_EQ(opened(notes).size(), 1U);
    EXPECT_TRUE(log.lines.at(0).starts_with("Quillary: could not open " + notes + ": viewer: "))
        << log.lines[0];
}

TEST_F(LauncherTest, revealingWithoutAFileManagerServiceOpensTheFolder) {
    install("files.desktop", "Name=Files\nExec=report files %f\nMimeType=inode/directory;");
    associate({{"inode/directory", "files.desktop"}});
    const auto folder = World::home() / "a b #1 100% ä";
    const std::vector<std::pair<std::filesystem::path, std::filesystem::path>> cases = {
        {World::home() / "notes.txt", World::home()},
        {folder / "x", folder},
        {folder, World::home()},
        {folder / "", World::home()},
        {"/", "/"},
    };
    writeFile(folder / "x", "text\n");
    writeFile(World::home() / "notes.txt", "text\n");
    for (const auto& [item, opened] : cases) {
        std::filesystem::remove(output);
        launcher.reveal(item.string());
        finish();
        EXPECT_EQ(waitForLine(output), "[files][" + opened.string() + "]\n") << item;
    }
    EXPECT_EQ(log.lines, Strings());
}

TEST_F(LauncherTest, aBrokenLinkCanBeRevealed) {
    install("files.desktop", "Name=Files\nExec=report %f\nMimeType=inode/directory;");
    associate({{"inode/directory", "files.desktop"}});
    std::filesystem::create_symlink("/nowhere", World::home() / "broken");
    launcher.reveal((World::home() / "broken").string());
    finish();
    EXPECT_EQ(waitForLine(output), "[" + World::home().string() + "]\n");
}

TEST_F(LauncherTest, whatIsMissingCannotBeRevealed) {
    launcher.reveal("/nowhere/at/all");
    finish();
    EXPECT_EQ(log.lines, Strings{"Quillary: could not reveal /nowhere/at/all: it does not exist"});
}

} // namespace

} // namespace quillary::test
