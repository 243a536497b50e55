#include "platform/linux/memory/ProcFilesystem.h"

#include "core/BoundedFile.h"
#include "core/FileDescriptor.h"
#include "core/ProcListLinux.h"

#include <array>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

namespace quillary {

namespace {

// More than any of these files holds: stat has some 400 bytes, status 1500, smaps_rollup 800.
using Buffer = std::array<char, 8192>;

// What the file holds, up to the size of the buffer; empty when it cannot be read. Thousands of these are
// read in one go, so there is no check that it is a regular file: a pipe in a folder that is not the kernel's
// would give an error or its bytes, never a wait.
std::string_view read(const std::string& path, Buffer& buffer) {
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file.isOpen()) {
        return {};
    }
    return {buffer.data(), readInto(buffer, file).value_or(0)};
}

} // namespace

ProcFilesystem::ProcFilesystem(std::filesystem::path root)
    : m_root(std::move(root)), m_prefix(m_root.string() + "/"), m_reader(m_root) {}

std::vector<std::int32_t> ProcFilesystem::pids() const {
    return ProcListLinux::pids(m_root);
}

std::optional<uid_t> ProcFilesystem::owner(std::int32_t pid) const {
    struct stat status {};
    const auto path = m_prefix + std::to_string(pid);
    return ::stat(path.c_str(), &status) == 0 ? std::optional(status.st_uid) : std::nullopt;
}

std::optional<ProcTexts::Stat> ProcFilesystem::stat(std::int32_t pid) const {
    Buffer buffer;
    return ProcTexts::stat(read(m_prefix + std::to_string(pid) + "/stat", buffer));
}

std::optional<std::uint64_t> ProcFilesystem::unsharedSum(std::int32_t pid) const {
    Buffer buffer;
    return ProcTexts::unsharedSum(read(m_prefix + std::to_string(pid) + "/status", buffer));
}

std::optional<std::uint64_t> ProcFilesystem::footprint(std::int32_t pid) const {
    Buffer buffer;
    return ProcTexts::footprint(read(m_prefix + std::to_string(pid) + "/smaps_rollup", buffer));
}

ProcessFacts ProcFilesystem::facts(std::int32_t pid) const {
    return m_reader.read(pid);
}

} // namespace quillary
