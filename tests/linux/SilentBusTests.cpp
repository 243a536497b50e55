#include "platform/linux/Launcher.h"
#include "tests/fake/ManualScheduler.h"
#include "tests/linux/LinesLog.h"
#include "tests/linux/World.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <stdexcept>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace quillary::test {

namespace {

// A bus that takes connections into its queue and never says a word.
class SilentBus {
public:
    explicit SilentBus(const std::filesystem::path& path)
        : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        const auto text = path.string();
        std::copy_n(text.begin(), std::min(text.size(), sizeof address.sun_path - 1),
                    std::begin(address.sun_path));
        if (::bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
            ::listen(m_socket, 8) != 0) {
            throw std::runtime_error("no socket");
        }
        ::setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + text).c_str(), 1);
    }
    SilentBus(const SilentBus&) = delete;
    SilentBus& operator=(const SilentBus&) = delete;
    ~SilentBus() { ::close(m_socket); }

private:
    int m_socket;
};

double seconds(const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

TEST(SilentBus, callsReturnAtOnceAndTheWorkerGivesUp) {
    const SilentBus bus(World::root() / "bus");
    ManualScheduler scheduler;
    LinesLog log;
    Launcher launcher(scheduler, log);
    const auto entry = install("a.desktop", "Name=A\nExec=true");
    EXPECT_LT(seconds([&] {
                  launcher.launch(entry);
                  launcher.reveal("/tmp");
                  launcher.open("/tmp");
              }),
              0.1);
    EXPECT_LT(seconds([&] {
                  while (scheduler.finishWork()) {
                  }
              }),
              30.0);
    EXPECT_EQ(log.lines,
              (std::vector<std::string>{"Quillary: could not launch a: the session bus does not answer",
                                        "Quillary: could not reveal /tmp: the session bus does not answer",
                                        "Quillary: could not open /tmp: the session bus does not answer"}));
}

} // namespace

} // namespace quillary::test

int main(int argc, char** argv) {
    quillary::test::World::enter();
    ::testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    quillary::test::World::leave();
    // A thread still waits for the bus.
    std::_Exit(result);
}
