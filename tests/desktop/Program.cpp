#include "tests/desktop/Program.h"

#include "tests/x11/ChildProcess.h"
#include "tests/x11/VirtualDisplay.h"

#include <csignal>
#include <cstdlib>
#include <fstream>

#include <sys/wait.h>

namespace quillary::test {

Program::~Program() {
    if (isRunning()) {
        signal(SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }
}

void Program::start(const std::vector<std::string>& environment, const std::vector<std::string>& arguments) {
    std::vector<std::string> command{"env", "XDG_DATA_DIRS=" + m_home.systemData().string()};
    command.insert(command.end(), environment.begin(), environment.end());
    // A sanitized program holds on to what it freed, which would look like a leak.
    const char* options = std::getenv("ASAN_OPTIONS");
    command.push_back("ASAN_OPTIONS=" + std::string(options != nullptr ? options : "") +
                      ":quarantine_size_mb=1");
    const std::vector<std::string> program{"sh", "-c", R"(log=$1; shift; exec "$0" "$@" >>"$log" 2>&1)",
                                           QUILLARY_PROGRAM, (m_home.path() / "program.log").string()};
    command.insert(command.end(), program.begin(), program.end());
    command.insert(command.end(), arguments.begin(), arguments.end());
    m_ended.reset();
    m_pid = ChildProcess::start(command);
}

void Program::reap() {
    int status = 0;
    if (!m_ended && m_pid > 0 && waitpid(m_pid, &status, WNOHANG) == m_pid) {
        m_ended = End{WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt};
    }
}

bool Program::isRunning() {
    reap();
    return m_pid > 0 && !m_ended;
}

void Program::signal(int number) const {
    if (m_pid > 0 && !m_ended) {
        kill(m_pid, number);
    }
}

std::optional<Program::End> Program::waitForEnd() {
    VirtualDisplay::waitUntil([this] { return !isRunning(); }, 4 * VirtualDisplay::deadline);
    return m_ended;
}

bool Program::quit() {
    signal(SIGTERM);
    return waitForEnd() == End{0};
}

std::string Program::log() const {
    return Home::read(m_home.path() / "program.log");
}

std::size_t Program::descriptors() const {
    std::error_code error;
    const std::filesystem::directory_iterator entries("/proc/" + std::to_string(m_pid) + "/fd", error);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

long Program::anonymousMemory() const {
    std::ifstream rollup("/proc/" + std::to_string(m_pid) + "/smaps_rollup");
    std::string word;
    long kib = 0;
    while (rollup >> word) {
        if (word == "Anonymous:" && rollup >> kib) {
            return kib;
        }
    }
    return -1;
}

} // namespace quillary::test
