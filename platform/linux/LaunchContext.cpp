#include "platform/linux/LaunchContext.h"

#include <gio/gio.h>

#include <array>
#include <atomic>
#include <cstdint>

#include <unistd.h>

namespace quillary {

namespace {

// What a service manager, a launcher and our own snapshot hook say about this process alone.
constexpr std::array ownVariables = {
    "QY_SNAPSHOT_DIR",
    "DESKTOP_STARTUP_ID",
    "XDG_ACTIVATION_TOKEN",
    "GIO_LAUNCHED_DESKTOP_FILE",
    "GIO_LAUNCHED_DESKTOP_FILE_PID",
    "INVOCATION_ID",
    "JOURNAL_STREAM",
    "NOTIFY_SOCKET",
    "WATCHDOG_PID",
    "WATCHDOG_USEC",
    "LISTEN_PID",
    "LISTEN_FDS",
    "LISTEN_FDNAMES",
    "MANAGERPID",
    "SYSTEMD_EXEC_PID",
};

char* startupNotifyId(GAppLaunchContext* /*context*/, GAppInfo* /*entry*/, GList* /*files*/) {
    return g_strdup(makeStartupId().c_str());
}

void initialiseClass(gpointer type, gpointer /*data*/) {
    static_cast<GAppLaunchContextClass*>(type)->get_startup_notify_id = startupNotifyId;
}

GType contextType() {
    static const GType type = g_type_register_static_simple(
        g_app_launch_context_get_type(), "QuillaryLaunchContext", sizeof(GAppLaunchContextClass),
        initialiseClass, sizeof(GAppLaunchContext), nullptr, static_cast<GTypeFlags>(0));
    return type;
}

} // namespace

GAppLaunchContext* makeLaunchContext() {
    auto* context = static_cast<GAppLaunchContext*>(g_object_new(contextType(), nullptr));
    for (const auto* variable : ownVariables) {
        g_app_launch_context_unsetenv(context, variable);
    }
    return context;
}

std::string makeStartupId() {
    static std::atomic<unsigned> count = 0;
    constexpr std::int64_t microsecondsPerMillisecond = 1000;
    // X timestamps have 32 bits and wrap; 0 would ask for no focus.
    const auto milliseconds = static_cast<std::uint32_t>(g_get_monotonic_time() / microsecondsPerMillisecond);
    return "quillary-" + std::to_string(::getpid()) + "-" + g_get_host_name() + "-" +
           std::to_string(++count) + "_TIME" + std::to_string(milliseconds == 0 ? 1 : milliseconds);
}

} // namespace quillary
