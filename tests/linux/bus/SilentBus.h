#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillary::test {

/// A bus that takes every connection and never answers.
class SilentBus {
public:
    /// Listens on the socket `path`; throws std::runtime_error when it can't.
    explicit SilentBus(std::filesystem::path path);
    SilentBus(const SilentBus&) = delete;
    SilentBus& operator=(const SilentBus&) = delete;
    /// Closes all connections and removes the socket.
    ~SilentBus();

    /// As DBUS_SESSION_BUS_ADDRESS holds it.
    [[nodiscard]] std::string address() const { return "unix:path=" + m_path.string(); }
    /// How many connections there were so far.
    [[nodiscard]] std::size_t connections();
    /// Whether a client has closed its connection.
    [[nodiscard]] bool isGivenUp();

private:
    const std::filesystem::path m_path;
    int m_socket;
    std::vector<int> m_clients;
};

} // namespace quillary::test
