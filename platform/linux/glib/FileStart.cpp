#include "platform/linux/glib/FileStart.h"

#include "core/FileDescriptor.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace quillary {

std::optional<std::string> readFileStart(const std::filesystem::path& path, std::size_t limit) {
    constexpr std::size_t chunk = 16384;
    // Without O_NONBLOCK the open of a pipe waits for its writer.
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    std::string bytes;
    while (bytes.size() < limit) {
        const auto length = bytes.size();
        bytes.resize(std::min(limit, length + chunk));
        const auto count = ::read(file.get(), bytes.data() + length, bytes.size() - length);
        bytes.resize(length + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count == 0) {
            break;
        }
        if (count < 0 && errno != EINTR) {
            return std::nullopt;
        }
    }
    return bytes;
}

} // namespace quillary
