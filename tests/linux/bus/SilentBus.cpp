#include "tests/linux/bus/SilentBus.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace quillary::test {

SilentBus::SilentBus(const std::filesystem::path& path)
    : m_path(path), m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    constexpr int queue = 8;
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const auto text = path.string();
    std::copy_n(text.begin(), std::min(text.size(), sizeof address.sun_path - 1),
                std::begin(address.sun_path));
    if (::bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(m_socket, queue) != 0) {
        throw std::runtime_error("no socket");
    }
}

SilentBus::~SilentBus() {
    ::close(m_socket);
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
}

} // namespace quillary::test
