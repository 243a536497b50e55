#include "tests/linux/bus/SilentBus.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace quillary::test {

SilentBus::SilentBus(std::filesystem::path path)
    : m_path(std::move(path)), m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const auto text = m_path.string();
    std::copy_n(text.begin(), std::min(text.size(), sizeof address.sun_path - 1),
                std::begin(address.sun_path));
    if (::bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(m_socket, 8) != 0) {
        throw std::runtime_error("no socket");
    }
}

SilentBus::~SilentBus() {
    for (const int client : m_clients) {
        ::close(client);
    }
    ::close(m_socket);
    ::unlink(m_path.c_str());
}

std::size_t SilentBus::connections() {
    for (int client = 0; (client = ::accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
        m_clients.push_back(client);
    }
    return m_clients.size();
}

bool SilentBus::isGivenUp() {
    static_cast<void>(connections());
    return std::ranges::any_of(m_clients, [](int client) {
        pollfd state{.fd = client, .events = POLLRDHUP, .revents = 0};
        return ::poll(&state, 1, 0) > 0;
    });
}

} // namespace quillary::test
