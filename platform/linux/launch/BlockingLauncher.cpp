#include "platform/linux/launch/BlockingLauncher.h"

#include "core/Paths.h"
#include "platform/linux/bus/BoundedCall.h"
#include "platform/linux/bus/SessionBus.h"
#include "platform/linux/entries/DesktopEntry.h"
#include "platform/linux/glib/GlibText.h"
#include "platform/linux/glib/Released.h"
#include "platform/linux/launch/LaunchContext.h"
#include "platform/linux/launch/TransientScope.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <chrono>
#include <filesystem>
#include <optional>

#include <unistd.h>

namespace quillary::BlockingLauncher {

namespace {

constexpr std::chrono::milliseconds busPatience{3000};
// An application that starts by D-Bus answers only when it is up.
constexpr std::chrono::seconds activationPatience{30};

using Entry = Released<GDesktopAppInfo, g_object_unref>;
using Info = Released<GAppInfo, g_object_unref>;
using Error = Released<GError, g_error_free>;

Failure failureOf(const GError* error) {
    return Failure(error != nullptr && error->message != nullptr ? error->message : "unknown error");
}

// GIO wants a list whose elements it doesn't own.
class UriList {
public:
    explicit UriList(const std::vector<std::string>& files) {
        for (const auto& file : files) {
            if (auto uri = fileUri(file); !uri.empty()) {
                uris.push_back(std::move(uri));
            }
        }
        for (auto uri = uris.rbegin(); uri != uris.rend(); ++uri) {
            list = g_list_prepend(list, uri->data());
        }
    }
    UriList(const UriList&) = delete;
    UriList& operator=(const UriList&) = delete;
    ~UriList() { g_list_free(list); }

    [[nodiscard]] GList* get() const { return list; }

private:
    std::vector<std::string> uris;
    GList* list = nullptr;
};

// Runs in the child between fork and exec: a session of its own, so that it outlives ours and takes none of
// our terminal's signals.
void detach(gpointer /*data*/) {
    ::setsid();
}

struct Started {
    std::vector<GPid> pids;
};

void noteStarted(GDesktopAppInfo* /*entry*/, GPid pid, gpointer data) {
    static_cast<Started*>(data)->pids.push_back(pid);
}

std::string entryStem(GDesktopAppInfo* entry) {
    const char* path = g_desktop_app_info_get_filename(entry);
    return path != nullptr ? std::filesystem::path(path).stem().string() : std::string("unknown");
}

Result<> spawn(GDesktopAppInfo* entry, const std::vector<std::string>& files, LaunchContext& context,
               GDBusConnection* bus) {
    // Without G_SPAWN_DO_NOT_REAP_CHILD GLib forks twice and the program becomes nobody's child to wait for.
    constexpr auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL |
                                                    G_SPAWN_STDERR_TO_DEV_NULL);
    const UriList uris(files);
    GError* problem = nullptr;
    Started started;
    const bool done =
        g_desktop_app_info_launch_uris_as_manager(entry, uris.get(), context.get(), flags, detach, nullptr,
                                                  noteStarted, &started, &problem) != 0;
    const Error error(problem);
    for (const auto pid : started.pids) {
        putInScopeOfItsOwn(bus, entryStem(entry), pid);
    }
    if (!done) {
        context.fail();
        return failureOf(error.get());
    }
    return {};
}

void activationFinished(GObject* source, GAsyncResult* result, gpointer data) {
    GError* problem = nullptr;
    g_app_info_launch_uris_finish(reinterpret_cast<GAppInfo*>(source), result, &problem);
    const Error error(problem);
    *static_cast<std::optional<Result<>>*>(data) = error ? failureOf(error.get()) : Result<>();
}

// GIO's synchronous call doesn't say whether a D-Bus activation succeeded; the asynchronous one does.
Result<> activateAndWait(GDesktopAppInfo* entry, const UriList& uris, GAppLaunchContext* context,
                         GCancellable* cancellable) {
    const Released<GMainContext, g_main_context_unref> loop(g_main_context_new());
    g_main_context_push_thread_default(loop.get());
    std::optional<Result<>> outcome;
    g_app_info_launch_uris_async(reinterpret_cast<GAppInfo*>(entry), uris.get(), context, cancellable,
                                 activationFinished, &outcome);
    while (!outcome) {
        g_main_context_iteration(loop.get(), TRUE);
    }
    g_main_context_pop_thread_default(loop.get());
    return *outcome;
}

template<typename Object>
Released<Object, g_object_unref> shared(Object* object) {
    return Released<Object, g_object_unref>(object != nullptr ? static_cast<Object*>(g_object_ref(object))
                                                              : nullptr);
}

// The context may be null.
Result<> activate(GDesktopAppInfo* entry, const std::vector<std::string>& files, GAppLaunchContext* context) {
    const BoundedCall<Result<>> call(
        [held = shared(entry), files, heldContext = shared(context)](GCancellable* cancellable) {
            return activateAndWait(held.get(), UriList(files), heldContext.get(), cancellable);
        });
    const auto* outcome = call.resultWithin(TimeLimit(activationPatience));
    return outcome != nullptr ? *outcome : Failure("it does not answer");
}

Result<> start(GDesktopAppInfo* entry, const std::vector<std::string>& files, const StartupOrigin& origin) {
    const auto connection = SessionBus::connect(TimeLimit(busPatience));
    if (!connection) {
        // GIO would wait for ever for the same bus.
        return Failure(connection.error());
    }
    const bool byBus = *connection != nullptr &&
                       g_desktop_app_info_get_boolean(entry, G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE) != 0;
    if (byBus && g_desktop_app_info_get_boolean(entry, G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY) == 0) {
        // GIO would ask the context for no id, and complain on standard error when it has none to tell the
        // context of a failure.
        return activate(entry, files, nullptr);
    }
    LaunchContext context(entry, origin);
    return byBus ? activate(entry, files, context.get()) : spawn(entry, files, context, *connection);
}

// GIO says of an entry only that it won't have it, and would wait for ever for the writer of a pipe.
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

Result<> startEntry(const std::string& path, const std::vector<std::string>& files,
                    const StartupOrigin& origin) {
    if (auto checked = check(path); !checked) {
        return checked;
    }
    const Entry entry(g_desktop_app_info_new_from_filename(path.c_str()));
    return entry ? start(entry.get(), files, origin) : Failure("its program is not installed");
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
    return start(entry, {path}, origin).map_error([entry](const std::string& reason) {
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
    return described("launch", entryPath, startEntry(entryPath, files, origin));
}

Result<> open(const std::string& path, const StartupOrigin& origin) {
    return described("open", path, startHandler(path, origin));
}

Result<> reveal(const std::string& path, const StartupOrigin& origin) {
    return described("reveal", path, show(withoutTrailingSlashes(path), origin));
}

} // namespace quillary::BlockingLauncher
