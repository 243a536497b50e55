#include "platform/linux/memory/ProcFilesystem.h"

#include "core/BoundedFile.h"
#include "core/FileDescriptor.h"

#include <array>
#include <charconv>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>

#include <dirent.h>
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

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

// 0 when the name is none of a process.
std::int32_t pidOf(std::string_view name) {
    std::int32_t pid = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), pid);
    const bool isNumber = error == std::errc() && end == name.data() + name.size();
    return isNumber && pid > 0 && name.front() != '0' ? pid : 0;
}

} // namespace

ProcFilesystem::ProcFilesystem(std::filesystem::path root)
    : m_root(std::move(root)), m_prefix(m_root.string() + "/"), m_reader(m_root) {}

std::vector<std::int32_t> ProcFilesystem::pids() const {
    std::vector<std::int32_t> result;
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir(m_root.c_str()));
    if (!folder) {
        return result;
    }
    while (const auto* entry = ::readdir(folder.get())) {
        if (const auto pid = pidOf(static_cast<const char*>(entry->d_name)); pid > 0) {
            result.push_back(pid);
        }
    }
    return result;
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

std::optional<std::uint64_t> ProcFilesystem::resident(std::int32_t pid) const {
    Buffer buffer;
    return ProcTexts::resident(read(m_prefix + std::to_string(pid) + "/status", buffer));
}

std::optional<std::uint64_t> ProcFilesystem::footprint(std::int32_t pid) const {
    Buffer buffer;
    return ProcTexts::footprint(read(m_prefix + std::to_string(pid) + "/smaps_rollup", buffer));
}

ProcessNamespaces ProcFilesystem::namespaces(std::int32_t pid) const {
    const auto folder = m_root / std::to_string(pid) / "ns";
    const auto target = [&folder](const char* name) {
        std::error_code error;
        return std::filesystem::read_symlink(folder / name, error).string();
    };
    return {.pid = target("pid"), .mount = target("mnt")};
}

ProcessFacts ProcFilesystem::facts(std::int32_t pid) const {
    return m_reader.read(pid);
}

} // namespace quillary
