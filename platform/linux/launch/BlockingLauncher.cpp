#include "platform/linux/launch/BlockingLauncher.h"

#include "core/Paths.h"
#include "platform/linux/bus/SessionBus.h"
#include "platform/linux/entries/DesktopEntry.h"
#include "platform/linux/glib/GlibText.h"
#include "platform/linux/glib/Released.h"
#include "platform/linux/launch/EntryStart.h"
#include "platform/linux/launch/LaunchContext.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <filesystem>

#include <unistd.h>

namespace quillary::BlockingLauncher {

namespace {

using Entry = Released<GDesktopAppInfo, g_object_unref>;
using Info = Released<GAppInfo, g_object_unref>;
using Error = Released<GError, g_error_free>;

// The reason why an entry cannot be started, which GIO does not give, and a check against pipes, on which GIO
// would block. GIO still parses the file itself: it has no constructor that takes both parsed keys and the
// file's name, which it passes to the program (GIO_LAUNCHED_DESKTOP_FILE).
Result<> check(const std::string& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        return Failure("it does not exist");
    }
    if (error) {
        return Failure(error.message());
    }
    if (!std::filesystem::is_regular_file(status)) {
        return Failure("it is no regular file");
    }
    if (::access(path.c_str(), R_OK) != 0) {
        return Failure("it may not be read");
    }
    const auto entry = readDesktopEntry(path, {}, {});
    if (!entry) {
        return Failure("it is no valid entry of an application");
    }
    if (entry->hidden) {
        return Failure("the entry is hidden");
    }
    return entry->tryExecMissing ? Failure("its TryExec is not installed") : Result<>();
}

Result<> startFile(const std::string& path, const std::vector<std::string>& files,
                   const StartupOrigin& origin) {
    if (auto checked = check(path); !checked) {
        return checked;
    }
    const Entry entry(g_desktop_app_info_new_from_filename(path.c_str()));
    return entry ? startEntry(entry.get(), files, origin) : Failure("its program is not installed");
}

Result<> startHandler(const std::string& path, const StartupOrigin& origin) {
    std::error_code status;
    const bool isFolder = std::filesystem::is_directory(path, status);
    if (!std::filesystem::exists(path, status)) {
        return Failure("it does not exist");
    }
    if (const auto connection = SessionBus::connect(TimeLimit(busPatience)); !connection) {
        return Failure(connection.error());
    }
    const Released<GFile, g_object_unref> file(g_file_new_for_path(path.c_str()));
    GError* problem = nullptr;
    const Info info(isFolder ? g_app_info_get_default_for_type("inode/directory", FALSE)
                             : g_file_query_default_handler(file.get(), nullptr, &problem));
    const Error error(problem);
    if (!info || !G_IS_DESKTOP_APP_INFO(info.get())) {
        return error ? failureOf(error.get()) : Failure("no application is there for it");
    }
    auto* entry = reinterpret_cast<GDesktopAppInfo*>(info.get());
    return startEntry(entry, {path}, origin).map_error([entry](const std::string& reason) {
        return entryStem(entry) + ": " + reason;
    });
}

Result<> show(const std::string& path, const StartupOrigin& origin) {
    std::error_code status;
    if (std::filesystem::symlink_status(path, status).type() == std::filesystem::file_type::not_found) {
        return Failure("it does not exist");
    }
    const auto connection = SessionBus::connect(TimeLimit(busPatience));
    if (!connection) {
        return Failure(connection.error());
    }
    if (*connection != nullptr &&
        SessionBus::showItems(*connection, {fileUri(path)}, makeStartupId(origin))) {
        return {};
    }
    return startHandler(std::filesystem::path(path).parent_path().string(), origin);
}

Result<> described(const std::string& action, const std::string& path, const Result<>& outcome) {
    return outcome.map_error([&](const std::string& reason) { return action + " " + path + ": " + reason; });
}

} // namespace

Result<> launch(const std::string& entryPath, const std::vector<std::string>& files,
                const StartupOrigin& origin) {
    return described("launch", entryPath, startFile(entryPath, files, origin));
}

Result<> open(const std::string& path, const StartupOrigin& origin) {
    return described("open", path, startHandler(path, origin));
}

Result<> reveal(const std::string& path, const StartupOrigin& origin) {
    return described("reveal", path, show(withoutTrailingSlashes(path), origin));
}

} // namespace quillary::BlockingLauncher
