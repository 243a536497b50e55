#include "platform/linux/launch/LaunchContext.h"

#include "platform/linux/bus/SessionBusAddress.h"
#include "platform/linux/glib/GlibText.h"
#include "platform/linux/glib/Released.h"
#include "platform/linux/launch/StartupMessage.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <utility>
#include <vector>

#include <unistd.h>

namespace quillary {

namespace {

constexpr const char* launchKey = "quillary-launch";
constexpr const char* idVariable = "DESKTOP_STARTUP_ID";
constexpr const char* tokenVariable = "XDG_ACTIVATION_TOKEN";

// Variables by which a service manager, a launcher or our snapshot hook addresses this process alone.
constexpr std::array ownVariables = {
    "QY_SNAPSHOT_DIR",
    idVariable,
    tokenVariable,
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

// Which side creates the startup id. GIO does so only for entries with StartupNotify or started over the bus.
enum class Notification { none, byGio, byUs };

Notification notificationOf(GDesktopAppInfo* entry) {
    if (g_desktop_app_info_has_key(entry, G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY) != 0) {
        return g_desktop_app_info_get_boolean(entry, G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY) != 0
                   ? Notification::byGio
                   : Notification::none;
    }
    const char* windowClass = g_desktop_app_info_get_startup_wm_class(entry);
    // A terminal's window has the terminal's class.
    const bool inTerminal = g_desktop_app_info_get_boolean(entry, G_KEY_FILE_DESKTOP_KEY_TERMINAL) != 0;
    const bool known = windowClass != nullptr && *windowClass != '\0' && !inTerminal;
    return known ? Notification::byUs : Notification::none;
}

std::uint32_t monotonicTime() {
    constexpr std::int64_t microsecondsPerMillisecond = 1000;
    return static_cast<std::uint32_t>(g_get_monotonic_time() / microsecondsPerMillisecond);
}

// Never 0, which means that the window must not get the focus.
std::uint32_t moment(const StartupOrigin& origin) {
    auto time = origin.time;
    if (time == 0 && origin.clock) {
        time = origin.clock();
    }
    if (time == 0) {
        time = monotonicTime();
    }
    return time == 0 ? 1 : time;
}

std::string idAt(std::uint32_t time) {
    static std::atomic<unsigned> count = 0;
    return "quillary-" + std::to_string(::getpid()) + "-" + g_get_host_name() + "-" +
           std::to_string(++count) + "_TIME" + std::to_string(time);
}

std::string textOf(const char* text) {
    return text != nullptr ? text : "";
}

// GIO's own function returns it with the quotes of Exec.
std::string programOf(GAppInfo* info) {
    char** words = nullptr;
    const bool parsed =
        g_shell_parse_argv(textOf(g_app_info_get_commandline(info)).c_str(), nullptr, &words, nullptr) != 0;
    const auto command = parsed ? takeTexts(words) : std::vector<std::string>();
    return command.empty() ? std::string() : command.front();
}

StartupSequence sequenceOf(GDesktopAppInfo* entry) {
    auto* info = reinterpret_cast<GAppInfo*>(entry);
    return {.name = textOf(g_app_info_get_display_name(info)),
            .icon = takeText(g_desktop_app_info_get_locale_string(entry, G_KEY_FILE_DESKTOP_KEY_ICON)),
            .binary = programOf(info),
            .applicationId = textOf(g_desktop_app_info_get_filename(entry)),
            .windowClass = textOf(g_desktop_app_info_get_startup_wm_class(entry))};
}

// The state of one launch for GIO's callbacks. Owned by the context, to which GIO may hold a reference.
struct Launch {
    Released<GDesktopAppInfo, g_object_unref> entry;
    StartupOrigin origin;
    Notification notification = Notification::none;
    std::uint32_t time = 0;
    // The id that is in the environment already, until a program uses it.
    std::string prepared;
    // The id of the sequence that this class began instead of GIO; else empty.
    std::string own;

    void send(const std::string& message) const {
        if (notification != Notification::none && origin.broadcast) {
            origin.broadcast(message);
        }
    }

    // When one launch starts several programs, each has its own sequence.
    std::string begin() {
        auto sequence = sequenceOf(entry.get());
        sequence.id = prepared.empty() ? idAt(time) : std::exchange(prepared, {});
        sequence.screen = origin.screen;
        sequence.time = time;
        send(startupBeginning(sequence));
        return sequence.id;
    }
};

Launch& launchOf(GAppLaunchContext* context) {
    return *static_cast<Launch*>(g_object_get_data(reinterpret_cast<GObject*>(context), launchKey));
}

void deleteLaunch(gpointer launch) {
    delete static_cast<Launch*>(launch);
}

char* giveId(GAppLaunchContext* context, GAppInfo* /*entry*/, GList* /*files*/) {
    return g_strdup(launchOf(context).begin().c_str());
}

void tellFailure(GAppLaunchContext* context, const char* id) {
    launchOf(context).send(startupEnd(textOf(id)));
}

void initialiseClass(gpointer type, gpointer /*data*/) {
    static_cast<GAppLaunchContextClass*>(type)->get_startup_notify_id = giveId;
    static_cast<GAppLaunchContextClass*>(type)->launch_failed = tellFailure;
}

GType contextType() {
    static const GType type = g_type_register_static_simple(
        g_app_launch_context_get_type(), "QuillaryLaunchContext", sizeof(GAppLaunchContextClass),
        initialiseClass, sizeof(GAppLaunchContext), nullptr, static_cast<GTypeFlags>(0));
    return type;
}

} // namespace

LaunchContext::LaunchContext(GDesktopAppInfo* entry, StartupOrigin origin)
    : m_context(static_cast<GAppLaunchContext*>(g_object_new(contextType(), nullptr))) {
    auto* launch = new Launch;
    g_object_set_data_full(reinterpret_cast<GObject*>(m_context), launchKey, launch, deleteLaunch);
    launch->entry.reset(static_cast<GDesktopAppInfo*>(g_object_ref(entry)));
    launch->origin = std::move(origin);
    launch->notification = notificationOf(entry);
    launch->time = moment(launch->origin);
    launch->prepared = idAt(launch->time);
    for (const auto* variable : ownVariables) {
        g_app_launch_context_unsetenv(m_context, variable);
    }
    if (SessionBusAddress::isStandIn()) {
        g_app_launch_context_unsetenv(m_context, "DBUS_SESSION_BUS_ADDRESS");
    }
    if (launch->notification != Notification::none) {
        g_app_launch_context_setenv(m_context, tokenVariable, launch->prepared.c_str());
    }
    if (launch->notification == Notification::byUs) {
        g_app_launch_context_setenv(m_context, idVariable, launch->prepared.c_str());
        launch->own = launch->begin();
    }
}

LaunchContext::~LaunchContext() {
    g_object_unref(m_context);
}

void LaunchContext::fail() {
    const auto& launch = launchOf(m_context);
    if (!launch.own.empty()) {
        launch.send(startupEnd(launch.own));
    }
}

std::string makeStartupId(const StartupOrigin& origin) {
    return idAt(moment(origin));
}

} // namespace quillary
