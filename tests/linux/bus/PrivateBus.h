#pragma once

#include <string>

#include <sys/types.h>

namespace quillary::test {

/// A session bus for one test. It dies with the test process whatever happens. Sets DBUS_SESSION_BUS_ADDRESS.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// Empty when it does not run.
    [[nodiscard]] const std::string& address() const { return busAddress; }
    /// Ends it.
    void stop();

private:
    pid_t process = 0;
    std::string busAddress;
};

} // namespace quillary::test
