#include "core/AtomicFile.h"

#include "core/BoundedFile.h"
#include "core/FileDescriptor.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace quillary::AtomicFile {

namespace {

namespace fs = std::filesystem;

constexpr int maximumLinks = 40;
constexpr int maximumAttempts = 100;
constexpr std::chrono::milliseconds lockPause{10};

std::error_code lastError() {
    return {errno, std::generic_category()};
}

Failure failure(const fs::path& path, std::error_code error) {
    return Failure(path.string() + ": " + error.message());
}

/// Follows symbolic links to where the content belongs, which need not exist.
fs::path finalTarget(fs::path path, std::error_code& error) {
    for (int followed = 0; followed < maximumLinks; ++followed) {
        const fs::file_status status = fs::symlink_status(path, error);
        if (status.type() == fs::file_type::not_found) {
            error.clear();
            return path;
        }
        if (error) {
            return path;
        }
        if (status.type() != fs::file_type::symlink) {
            if (status.type() == fs::file_type::directory) {
                error = std::make_error_code(std::errc::is_a_directory);
            } else if (status.type() != fs::file_type::regular) {
                error = std::make_error_code(std::errc::invalid_argument);
            }
            return path;
        }
        const fs::path link = fs::read_symlink(path, error);
        if (error) {
            return path;
        }
        path = path.parent_path() / link;
    }
    error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
    return path;
}

/// Whether the file behind `descriptor` still has the name `path`, and no other.
bool isOnlyFileAt(const fs::path& path, int descriptor) {
    struct stat opened {};
    struct stat named {};
    return ::fstat(descriptor, &opened) == 0 && ::lstat(path.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino && S_ISREG(opened.st_mode) &&
           opened.st_nlink == 1;
}

/// Whether opening failed because something that is no leftover of ours has the temporary file's name: a
/// link, another user's file, or a socket.
bool isObstacle(std::error_code error) {
    return error == std::errc::too_many_symbolic_link_levels || error == std::errc::permission_denied ||
           error == std::errc::no_such_device_or_address;
}

/// Removes what stands at `path`, unless it is a file that a writer may be using. With nothing there, the
/// folder was what opening failed at.
std::error_code clearWay(const fs::path& path, std::error_code openError) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) {
        return openError;
    }
    const bool isUsable = S_ISREG(status.st_mode) && status.st_nlink == 1 && !openError;
    return isUsable || ::unlink(path.c_str()) == 0 ? std::error_code{} : lastError();
}

/// Opens the temporary file and locks it, so that no other writer touches it until it is closed. What a
/// killed writer left there is used again.
FileDescriptor openTemporary(const fs::path& path, std::error_code& error) {
    for (int attempt = 0; attempt < maximumAttempts; ++attempt) {
        // O_NONBLOCK: a pipe in the way must not make the call wait. O_NOFOLLOW: a link must not lead the
        // bytes away.
        FileDescriptor file(
            ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, 0600));
        error = file.isOpen() ? std::error_code{} : lastError();
        if (!file.isOpen() && !isObstacle(error)) {
            return file;
        }
        // A file system without locks fails otherwise: nothing keeps two writers apart there, one is still
        // safe.
        if (file.isOpen() && ::flock(file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
            std::this_thread::sleep_for(lockPause);
            continue;
        }
        if (file.isOpen() && isOnlyFileAt(path, file.get())) {
            return file;
        }
        // Either another writer has just renamed the file, which leaves nothing to clear, or there is an
        // obstacle.
        if ((error = clearWay(path, error))) {
            return FileDescriptor(-1);
        }
    }
    error = std::make_error_code(std::errc::device_or_resource_busy);
    return FileDescriptor(-1);
}

std::error_code writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) {
            return lastError();
        }
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    return {};
}

std::error_code copyAll(int descriptor, const FileDescriptor& source) {
    constexpr std::size_t chunk = std::size_t{64} * 1024;
    std::string buffer(chunk, '\0');
    while (true) {
        const auto count = readInto(buffer, source);
        if (!count) {
            return lastError();
        }
        if (*count == 0) {
            return {};
        }
        if (const auto error = writeAll(descriptor, std::string_view(buffer).substr(0, *count))) {
            return error;
        }
    }
}

/// Writes the content of a file that is open.
using Writer = std::function<std::error_code(int descriptor)>;

std::error_code fill(int descriptor, const Writer& writeContent) {
    if (::ftruncate(descriptor, 0) != 0 || ::fchmod(descriptor, S_IRUSR | S_IWUSR) != 0) {
        return lastError();
    }
    if (const std::error_code error = writeContent(descriptor)) {
        return error;
    }
    return ::fsync(descriptor) == 0 ? std::error_code{} : lastError();
}

std::error_code flushFolder(const fs::path& folder) {
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // Some file systems cannot flush a folder and say EINVAL; there is nothing more to be done on them.
    if (opened.isOpen() && (::fsync(opened.get()) == 0 || errno == EINVAL)) {
        return {};
    }
    return lastError();
}

Result<> replace(const fs::path& target, const Writer& writeContent) {
    std::error_code error;
    const fs::path file = finalTarget(target, error);
    if (!error && !file.has_filename()) {
        error = std::make_error_code(std::errc::invalid_argument);
    }
    if (error) {
        return failure(file, error);
    }
    const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
    const fs::path temporary = folder / ("." + file.filename().string() + ".tmp");
    const FileDescriptor opened = openTemporary(temporary, error);
    if (!opened.isOpen()) {
        return failure(temporary, error);
    }
    error = fill(opened.get(), writeContent);
    if (!error && std::rename(temporary.c_str(), file.c_str()) != 0) {
        error = lastError();
    }
    if (error) {
        ::unlink(temporary.c_str());
        return failure(file, error);
    }
    if ((error = flushFolder(folder))) {
        return failure(folder, error);
    }
    return {};
}

} // namespace

Result<> write(const fs::path& target, std::string_view bytes) {
    return replace(target, [bytes](int descriptor) { return writeAll(descriptor, bytes); });
}

Result<> copy(const fs::path& source, const fs::path& target) {
    // O_NONBLOCK: a pipe must not make the call wait.
    const FileDescriptor opened(::open(source.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    if (!opened.isOpen() || ::fstat(opened.get(), &status) != 0) {
        return failure(source, lastError());
    }
    if (!S_ISREG(status.st_mode)) {
        return failure(source, std::make_error_code(std::errc::invalid_argument));
    }
    return replace(target, [&opened](int descriptor) { return copyAll(descriptor, opened); });
}

} // namespace quillary::AtomicFile
