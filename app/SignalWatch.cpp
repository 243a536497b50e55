#include "app/SignalWatch.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quillary {

namespace {

constexpr std::array watched{SIGTERM, SIGINT, SIGHUP};

// Signal handlers may call few functions: this one writes a byte here, and the event loop reads it.
std::array<int, 2> ends{-1, -1};

void handle(int /*number*/) {
    const int saved = errno;
    const char byte = 1;
    static_cast<void>(::write(ends[1], &byte, 1) == 1);
    errno = saved;
}

void setHandler(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (const int number : watched) {
        sigaction(number, &action, nullptr);
    }
}

} // namespace

SignalWatch::SignalWatch() {
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0) {
        return;
    }
    for (const int end : ends) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    m_notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &SignalWatch::receive);
    setHandler(&handle);
}

SignalWatch::~SignalWatch() {
    setHandler(SIG_DFL);
    for (int& end : ends) {
        ::close(end);
        end = -1;
    }
}

void SignalWatch::receive() {
    char byte = 0;
    while (::read(ends[0], &byte, 1) == 1) {
    }
    Q_EMIT terminationRequested();
}

} // namespace quillary
