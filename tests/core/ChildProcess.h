#pragma once

#include "core/FileDescriptor.h"

#include <csignal>
#include <filesystem>
#include <functional>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillary::test {

/// Runs a function that returns an exit code in a forked process; kills it at the end when it still runs.
class ChildProcess {
public:
    explicit ChildProcess(const std::function<int()>& function) : m_process(::fork()) {
        if (m_process == 0) {
            ::_exit(function());
        }
    }
    ~ChildProcess() {
        if (m_process > 0) {
            kill();
        }
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Waits for the end and gives the exit code; -1 when it ended otherwise or could not be started.
    int exitCode() {
        const int status = wait();
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    /// Kills it and gives the signal that ended it; 0 when it had ended before.
    int kill() {
        ::kill(m_process, SIGKILL);
        const int status = wait();
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

private:
    int wait() {
        int status = -1;
        ::waitpid(m_process, &status, 0);
        m_process = -1;
        return status;
    }

    pid_t m_process;
};

/// Creates and locks the file at `path` and keeps it so until killed.
inline int holdLockForEver(const std::filesystem::path& path) {
    const FileDescriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (::flock(file.get(), LOCK_EX) != 0) {
        return 1;
    }
    while (true) {
        ::pause();
    }
}

inline bool isUnlocked(const std::filesystem::path& path) {
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return file.isOpen() && ::flock(file.get(), LOCK_SH | LOCK_NB) == 0;
}

} // namespace quillary::test
