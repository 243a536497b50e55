#include "tests/linux/bus/PrivateBus.h"

#include "tests/x11/ChildProcess.h"

#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace quillary::test {

namespace {

constexpr int deadline = 15000;

std::string readLine(int file) {
    std::string line;
    pollfd waiting{file, POLLIN, 0};
    char character = 0;
    while (poll(&waiting, 1, deadline) > 0 && ::read(file, &character, 1) == 1 && character != '\n') {
        line += character;
    }
    return line;
}

} // namespace

PrivateBus::PrivateBus() {
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return;
    }
    m_process =
        ChildProcess::start({"dbus-daemon", "--config-file=" QUILLARY_BUS_CONFIGURATION, "--nofork",
                             "--nopidfile", "--nosyslog", "--print-address=" + std::to_string(ends[1])},
                            ends[1]);
    ::close(ends[1]);
    m_address = readLine(ends[0]);
    ::close(ends[0]);
    setenv("DBUS_SESSION_BUS_ADDRESS", m_address.c_str(), 1);
}

PrivateBus::~PrivateBus() {
    stop();
}

void PrivateBus::stop() {
    if (m_process > 0) {
        ChildProcess::end(std::exchange(m_process, 0));
    }
}

} // namespace quillary::test
