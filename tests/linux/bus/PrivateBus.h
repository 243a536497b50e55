#pragma once

#include <string>

#include <sys/types.h>

namespace quillary::test {

/// A session bus for one test, which can start no service. It ends with the test process, even when that is
/// killed. Sets DBUS_SESSION_BUS_ADDRESS.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// Empty when the bus could not be started.
    [[nodiscard]] const std::string& address() const { return m_address; }
    /// Ends the bus.
    void stop();

private:
    pid_t m_process = 0;
    std::string m_address;
};

} // namespace quillary::test
