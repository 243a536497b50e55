#include "platform/linux/launch/EntryStart.h"

#include "platform/linux/bus/BoundedCall.h"
#include "platform/linux/bus/SessionBus.h"
#include "platform/linux/glib/GlibText.h"
#include "platform/linux/glib/Released.h"
#include "platform/linux/launch/LaunchContext.h"
#include "platform/linux/launch/TransientScope.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <utility>

#include <unistd.h>

namespace quillary {

namespace {

// An application that D-Bus activates answers only when it is up.
constexpr std::chrono::seconds activationPatience{30};

using Error = Released<GError, g_error_free>;

// The files' URIs as the list that GIO takes; it does not own the elements.
class UriList {
public:
    explicit UriList(const std::vector<std::string>& files) {
        for (const auto& file : files) {
            if (auto uri = fileUri(file); !uri.empty()) {
                m_uris.push_back(std::move(uri));
            }
        }
        for (auto uri = m_uris.rbegin(); uri != m_uris.rend(); ++uri) {
            m_list = g_list_prepend(m_list, uri->data());
        }
    }
    UriList(const UriList&) = delete;
    UriList& operator=(const UriList&) = delete;
    ~UriList() { g_list_free(m_list); }

    [[nodiscard]] GList* get() const { return m_list; }

private:
    std::vector<std::string> m_uris;
    GList* m_list = nullptr;
};

// Runs in the child between fork and exec: a new session, so that the child outlives ours and gets none of
// our terminal's signals.
void detach(gpointer /*data*/) {
    ::setsid();
}

void noteStarted(GDesktopAppInfo* /*entry*/, GPid pid, gpointer data) {
    static_cast<std::vector<GPid>*>(data)->push_back(pid);
}

Result<> spawn(GDesktopAppInfo* entry, const std::vector<std::string>& files, LaunchContext& context,
               GDBusConnection* bus) {
    // Without G_SPAWN_DO_NOT_REAP_CHILD GLib forks twice, so that no zombie is left for us to reap.
    constexpr auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL |
                                                    G_SPAWN_STDERR_TO_DEV_NULL);
    const UriList uris(files);
    GError* problem = nullptr;
    std::vector<GPid> started;
    const bool done =
        g_desktop_app_info_launch_uris_as_manager(entry, uris.get(), context.get(), flags, detach, nullptr,
                                                  noteStarted, &started, &problem) != 0;
    const Error error(problem);
    for (const auto pid : started) {
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
Released<Object, g_object_unref> newReference(Object* object) {
    return Released<Object, g_object_unref>(object != nullptr ? static_cast<Object*>(g_object_ref(object))
                                                              : nullptr);
}

// The context may be null.
Result<> activate(GDesktopAppInfo* entry, const std::vector<std::string>& files, GAppLaunchContext* context) {
    const BoundedCall<Result<>> call(
        [held = newReference(entry), files, heldContext = newReference(context)](GCancellable* cancellable) {
            return activateAndWait(held.get(), UriList(files), heldContext.get(), cancellable);
        });
    const auto* outcome = call.resultWithin(TimeLimit(activationPatience));
    return outcome != nullptr ? *outcome : Failure("it does not answer");
}

} // namespace

Failure failureOf(const GError* error) {
    return Failure(error != nullptr && error->message != nullptr ? error->message : "unknown error");
}

std::string entryStem(GDesktopAppInfo* entry) {
    const char* path = g_desktop_app_info_get_filename(entry);
    return path != nullptr ? std::filesystem::path(path).stem().string() : std::string("unknown");
}

Result<> startEntry(GDesktopAppInfo* entry, const std::vector<std::string>& files,
                    const StartupOrigin& origin) {
    const auto connection = SessionBus::connect(TimeLimit(busPatience));
    if (!connection) {
        // GIO would wait for the same bus, without a limit.
        return Failure(connection.error());
    }
    const bool byBus = *connection != nullptr &&
                       g_desktop_app_info_get_boolean(entry, G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE) != 0;
    if (byBus && g_desktop_app_info_get_boolean(entry, G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY) == 0) {
        // GIO asks the context for no id in this case, and on a failure prints a warning because it has none
        // to report to the context.
        return activate(entry, files, nullptr);
    }
    LaunchContext context(entry, origin);
    return byBus ? activate(entry, files, context.get()) : spawn(entry, files, context, *connection);
}

} // namespace quillary
