#include "tests/x11/ChildProcess.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillary::test::ChildProcess {

namespace {

using Clock = std::chrono::steady_clock;

// Only what is safe between fork and exec.
[[noreturn]] void become(char* const* arguments, int inherited, bool verbose) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int nowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    dup2(nowhere, STDIN_FILENO);
    dup2(verbose ? STDERR_FILENO : nowhere, STDOUT_FILENO);
    if (!verbose) {
        dup2(nowhere, STDERR_FILENO);
    }
    if (inherited >= 0) {
        fcntl(inherited, F_SETFD, 0);
    }
    execvp(arguments[0], arguments);
    _exit(127);
}

} // namespace

pid_t start(const std::vector<std::string>& command, int inherited) {
    std::vector<std::string> words = command;
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (auto& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    const bool verbose = std::getenv("QUILLARY_TEST_VERBOSE") != nullptr;
    const pid_t process = fork();
    if (process == 0) {
        become(arguments.data(), inherited, verbose);
    }
    return process < 0 ? 0 : process;
}

int wait(pid_t process, int milliseconds) {
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
    int status = 0;
    while (true) {
        const pid_t reaped = waitpid(process, &status, WNOHANG);
        if (reaped == process) {
            return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        }
        if (reaped < 0 || Clock::now() >= end) {
            return -1;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

void end(pid_t process) {
    if (process <= 0) {
        return;
    }
    kill(process, SIGTERM);
    [[maybe_unused]] const int status = wait(process, 2000);
    if (kill(process, 0) == 0 && waitpid(process, nullptr, WNOHANG) == 0) {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
}

} // namespace quillary::test::ChildProcess
