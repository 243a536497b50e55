#include "core/BoundedFile.h"

#include "core/FileDescriptor.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace quillary {

std::optional<std::string> readBoundedFile(const std::filesystem::path& path, std::size_t limit) {
    // One byte more than allowed is read, to distinguish a file at the limit from a larger one.
    auto content = readFileStart(path, limit + 1);
    return content && content->size() <= limit ? std::move(content) : std::nullopt;
}

std::optional<std::string> readFileStart(const std::filesystem::path& path, std::size_t limit) {
    constexpr std::size_t chunk = std::size_t{64} * 1024;
    // Without O_NONBLOCK opening a pipe would wait for a writer.
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    std::string content;
    while (content.size() < limit) {
        const auto length = content.size();
        content.resize(length + std::min(chunk, limit - length));
        const auto count = readInto(std::span(content).subspan(length), file);
        if (!count) {
            return std::nullopt;
        }
        const bool isAtEnd = length + *count < content.size();
        content.resize(length + *count);
        if (isAtEnd) {
            break;
        }
    }
    return content;
}

std::optional<std::size_t> readInto(std::span<char> buffer, const FileDescriptor& file) {
    std::size_t length = 0;
    while (length < buffer.size()) {
        const auto count = ::read(file.get(), buffer.data() + length, buffer.size() - length);
        if (count < 0 && errno != EINTR) {
            return std::nullopt;
        }
        if (count == 0) {
            break;
        }
        length += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
    return length;
}

} // namespace quillary
