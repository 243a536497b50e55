#pragma once

#include <filesystem>
#include <string>

namespace quillary::test {

/// A bus that accepts connections into its queue and never answers.
class SilentBus {
public:
    /// Listens on a Unix socket at the path; throws std::runtime_error when it can't.
    explicit SilentBus(const std::filesystem::path& path);
    SilentBus(const SilentBus&) = delete;
    SilentBus& operator=(const SilentBus&) = delete;
    /// Closes the socket and removes it.
    ~SilentBus();

    /// For DBUS_SESSION_BUS_ADDRESS.
    [[nodiscard]] std::string address() const { return "unix:path=" + m_path.string(); }

private:
    std::filesystem::path m_path;
    int m_socket;
};

} // namespace quillary::test
