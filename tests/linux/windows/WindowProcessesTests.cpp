#include "platform/linux/LinuxWorkspace.h"
#include "platform/linux/entries/DesktopEntries.h"
#include "tests/fake/ManualScheduler.h"
#include "tests/linux/FakeWindowSource.h"
#include "tests/linux/LinesLog.h"
#include "tests/linux/World.h"

#include <gtest/gtest.h>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace quillary::test {

namespace {

/// Windows that say nothing of themselves but the process they belong to, which is real.
class WindowProcessesTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        program = World::programs() / "painter";
        std::filesystem::copy_file("/bin/sleep", program);
        entry = install("painter.desktop", "Name=Painter\nExec=painter %U");
    }

    void TearDown() override {
        while (!processes.empty()) {
            end(processes.back());
        }
    }

    pid_t run() {
        const auto process = ::fork();
        if (process == 0) {
            ::execl(program.c_str(), "painter", "600", nullptr);
            ::_exit(127);
        }
        processes.push_back(process);
        // Until exec it is still this program.
        const auto link = "/proc/" + std::to_string(process) + "/exe";
        std::error_code error;
        for (int attempt = 0; attempt < 500 && std::filesystem::read_symlink(link, error) != program;
             ++attempt) {
            ::usleep(10000);
        }
        return process;
    }

    void end(pid_t process) {
        ::kill(process, SIGKILL);
        ::waitpid(process, nullptr, 0);
        std::erase(processes, process);
    }

    static WindowInfo windowOf(pid_t process, std::uint64_t id) {
        WindowInfo info;
        info.id = id;
        info.pid = process;
        return info;
    }

    std::filesystem::path program;
    std::string entry;
    std::vector<pid_t> processes;
    FakeWindowSource source;
    ManualScheduler scheduler;
    LinesLog log;
    DesktopEntries entries{scheduler};
    LinuxWorkspace workspace{source, entries, scheduler, log};
};

TEST_F(WindowProcessesTest, severalProcessesOfOneEntryAreOneApplication) {
    source.list = {windowOf(run(), 1), windowOf(run(), 2)};
    const auto list = workspace.runningApplications();
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].bundlePath, entry);
    workspace.terminate(list[0]);
    EXPECT_EQ(source.closed, (std::vector<std::uint64_t>{2, 1}));
}

TEST_F(WindowProcessesTest, processThatEndsBeforeItIsLookedAtTellsNothing) {
    const auto process = run();
    end(process);
    source.list = {windowOf(process, 1)};
    EXPECT_TRUE(workspace.runningApplications().empty());
}

TEST_F(WindowProcessesTest, windowOutlivesItsProcessAsWhatItWas) {
    const auto process = run();
    source.list = {windowOf(process, 1)};
    ASSERT_EQ(workspace.runningApplications().size(), 1U);
    end(process);
    EXPECT_EQ(workspace.runningApplications().size(), 1U);
    source.list = {};
    EXPECT_TRUE(workspace.runningApplications().empty());
}

} // namespace

} // namespace quillary::test
