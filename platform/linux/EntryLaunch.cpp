#include "platform/linux/EntryLaunch.h"

#include "platform/linux/GlibText.h"
#include "platform/linux/LaunchContext.h"
#include "platform/linux/Released.h"
#include "platform/linux/SessionBus.h"
#include "platform/linux/TransientScope.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <filesystem>
#include <optional>

#include <unistd.h>

namespace quillary::EntryLaunch {

namespace {

constexpr std::chrono::milliseconds busPatience{3000};
// An application that starts by D-Bus answers only when it is up.
constexpr guint activationPatienceSeconds = 30;

using Entry = Released<GDesktopAppInfo, g_object_unref>;
using Info = Released<GAppInfo, g_object_unref>;
using Context = Released<GAppLaunchContext, g_object_unref>;
using Error = Released<GError, g_error_free>;

std::string failureOf(const std::string& what, const GError* error) {
    return what + ": " + (error != nullptr && error->message != nullptr ? error->message : "unknown error");
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

std::string spawn(GDesktopAppInfo* entry, const UriList& uris, GAppLaunchContext* context,
                  GDBusConnection* bus) {
    // Without G_SPAWN_DO_NOT_REAP_CHILD GLib forks twice and the program becomes nobody's child to wait for.
    constexpr auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL |
                                                    G_SPAWN_STDERR_TO_DEV_NULL);
    GError* problem = nullptr;
    Started started;
    const bool done =
        g_desktop_app_info_launch_uris_as_manager(entry, uris.get(), context, flags, detach, nullptr,
                                                  noteStarted, &started, &problem) != 0;
    const Error error(problem);
    for (const auto pid : started.pids) {
        putInScopeOfItsOwn(bus, entryStem(entry), pid);
    }
    return done ? std::string() : failureOf("launch " + entryStem(entry), error.get());
}

struct Activation {
    GMainContext* loop = nullptr;
    bool finished = false;
    bool timedOut = false;
    GError* error = nullptr;
};

void activationFinished(GObject* source, GAsyncResult* result, gpointer data) {
    auto& activation = *static_cast<Activation*>(data);
    g_app_info_launch_uris_finish(reinterpret_cast<GAppInfo*>(source), result, &activation.error);
    activation.finished = true;
}

gboolean activationTookTooLong(gpointer data) {
    g_cancellable_cancel(static_cast<GCancellable*>(data));
    return G_SOURCE_REMOVE;
}

// The synchronous call of GIO doesn't tell whether a D-Bus activation came through; the asynchronous one
// does.
std::string activate(GDesktopAppInfo* entry, const UriList& uris, GAppLaunchContext* context) {
    const Released<GMainContext, g_main_context_unref> loop(g_main_context_new());
    const Released<GCancellable, g_object_unref> cancellable(g_cancellable_new());
    const Released<GSource, g_source_unref> limit(g_timeout_source_new_seconds(activationPatienceSeconds));
    g_source_set_callback(limit.get(), activationTookTooLong, cancellable.get(), nullptr);
    g_source_attach(limit.get(), loop.get());
    g_main_context_push_thread_default(loop.get());
    Activation activation{.loop = loop.get()};
    g_app_info_launch_uris_async(reinterpret_cast<GAppInfo*>(entry), uris.get(), context, cancellable.get(),
                                 activationFinished, &activation);
    while (!activation.finished) {
        g_main_context_iteration(loop.get(), TRUE);
    }
    g_main_context_pop_thread_default(loop.get());
    g_source_destroy(limit.get());
    const Error error(activation.error);
    return error ? failureOf("launch " + entryStem(entry), error.get()) : std::string();
}

std::string launchEntry(GDesktopAppInfo* entry, const UriList& uris) {
    const auto connection = SessionBus::connect(busPatience);
    if (connection.state == SessionBus::State::silent) {
        // GIO would wait for ever for the same bus.
        return "launch " + entryStem(entry) + ": the session bus does not answer";
    }
    const Context context(makeLaunchContext());
    const bool byBus =
        connection.bus != nullptr && g_desktop_app_info_get_boolean(entry, "DBusActivatable") != 0;
    if (!byBus) {
        return spawn(entry, uris, context.get(), connection.bus);
    }
    // Without an id GIO complains on standard error when it tells the context of a failure.
    const bool hasId = g_desktop_app_info_get_boolean(entry, "StartupNotify") != 0;
    return activate(entry, uris, hasId ? context.get() : nullptr);
}

std::string openUri(const std::string& path) {
    std::error_code status;
    const bool isFolder = std::filesystem::is_directory(path, status);
    if (!std::filesystem::exists(path, status)) {
        return "open " + path + ": it does not exist";
    }
    const Released<GFile, g_object_unref> file(g_file_new_for_path(path.c_str()));
    GError* problem = nullptr;
    Info info(isFolder ? g_app_info_get_default_for_type("inode/directory", FALSE)
                       : g_file_query_default_handler(file.get(), nullptr, &problem));
    const Error error(problem);
    if (!info || !G_IS_DESKTOP_APP_INFO(info.get())) {
        return error ? failureOf("open " + path, error.get())
                     : "open " + path + ": no application is there for it";
    }
    return launchEntry(reinterpret_cast<GDesktopAppInfo*>(info.get()), UriList({path}));
}

} // namespace

std::string launch(const std::string& entryPath, const std::vector<std::string>& files) {
    const Entry entry(g_desktop_app_info_new_from_filename(entryPath.c_str()));
    if (!entry) {
        return "launch " + entryPath + ": it is no valid entry or its program is missing";
    }
    if (g_desktop_app_info_get_is_hidden(entry.get()) != 0) {
        return "launch " + entryPath + ": the entry is hidden";
    }
    return launchEntry(entry.get(), UriList(files));
}

std::string open(const std::string& path) {
    const auto connection = SessionBus::connect(busPatience);
    if (connection.state == SessionBus::State::silent) {
        return "open " + path + ": the session bus does not answer";
    }
    return openUri(path);
}

std::string reveal(const std::string& path) {
    const auto connection = SessionBus::connect(busPatience);
    if (connection.state == SessionBus::State::silent) {
        return "reveal " + path + ": the session bus does not answer";
    }
    if (connection.bus != nullptr &&
        SessionBus::showItems(connection.bus, {fileUri(path)}, makeStartupId())) {
        return {};
    }
    return openUri(std::filesystem::path(path).parent_path().string());
}

} // namespace quillary::EntryLaunch
