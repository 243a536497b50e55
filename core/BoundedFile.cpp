#include "core/BoundedFile.h"

#include "core/FileDescriptor.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace quillary {

std::optional<std::string> readBoundedFile(const std::filesystem::path& path, std::size_t limit) {
    // Without O_NONBLOCK opening a pipe would wait for a writer.
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    std::string content;
    constexpr std::size_t chunk = std::size_t{64} * 1024;
    // One byte more than allowed is asked for, to tell a file at the limit from a larger one.
    while (content.size() <= limit) {
        const std::size_t length = content.size();
        content.resize(length + std::min(chunk, limit + 1 - length));
        const ssize_t count = ::read(file.get(), content.data() + length, content.size() - length);
        content.resize(length + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count == 0) {
            return content;
        }
        if (count < 0 && errno != EINTR) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace quillary
