#include "platform/linux/launch/TransientScope.h"

#include "platform/linux/glib/Released.h"
#include "platform/linux/windows/UnitName.h"

#include <gio/gio.h>

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <stop_token>
#include <thread>

namespace quillary {

namespace {

constexpr int timeoutMilliseconds = 2000;

using Cancellable = Released<GCancellable, g_object_unref>;

// Cancels after the time limit, unless it is destroyed first.
class TimeLimit {
public:
    [[nodiscard]] GCancellable* cancellable() const { return m_cancellable.get(); }

private:
    void wait(const std::stop_token& stop) const {
        std::mutex lock;
        std::condition_variable_any never;
        std::unique_lock guard(lock);
        never.wait_for(guard, stop, std::chrono::milliseconds(timeoutMilliseconds), [] { return false; });
        if (!stop.stop_requested()) {
            g_cancellable_cancel(m_cancellable.get());
        }
    }

    Cancellable m_cancellable{g_cancellable_new()};
    std::jthread m_thread{[this](const std::stop_token& stop) { wait(stop); }};
};

using Bus = Released<GDBusConnection, g_object_unref>;

GVariant* properties(const std::string& entryStem, std::int64_t pid) {
    GVariantBuilder list;
    g_variant_builder_init(&list, G_VARIANT_TYPE("a(sv)"));
    const auto number = static_cast<guint32>(pid);
    g_variant_builder_add(&list, "(sv)", "PIDs",
                          g_variant_new_fixed_array(G_VARIANT_TYPE_UINT32, &number, 1, sizeof number));
    g_variant_builder_add(&list, "(sv)", "Description", g_variant_new_string(entryStem.c_str()));
    g_variant_builder_add(&list, "(sv)", "Slice", g_variant_new_string("app.slice"));
    // A scope whose processes failed would otherwise stay in the manager's list for ever.
    g_variant_builder_add(&list, "(sv)", "CollectMode", g_variant_new_string("inactive-or-failed"));
    return g_variant_builder_end(&list);
}

bool startScope(GDBusConnection* bus, const std::string& name, const std::string& entryStem,
                std::int64_t pid) {
    GVariantBuilder others;
    g_variant_builder_init(&others, G_VARIANT_TYPE("a(sa(sv))"));
    auto* arguments = g_variant_new("(ss@a(sv)@a(sa(sv)))", name.c_str(), "fail", properties(entryStem, pid),
                                    g_variant_builder_end(&others));
    const Released<GVariant, g_variant_unref> answer(g_dbus_connection_call_sync(
        bus, "org.freedesktop.systemd1", "/org/freedesktop/systemd1", "org.freedesktop.systemd1.Manager",
        "StartTransientUnit", arguments, nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, timeoutMilliseconds,
        nullptr, nullptr));
    return answer != nullptr;
}

// Sessions whose bus isn't the user manager's (an X session under dbus-run-session) still may have that
// manager.
Bus userManagerBus() {
    const char* runtime = g_getenv("XDG_RUNTIME_DIR");
    const auto path = std::filesystem::path(runtime != nullptr ? runtime : "") / "bus";
    std::error_code error;
    if (!path.is_absolute() || !std::filesystem::is_socket(path, error)) {
        return nullptr;
    }
    const Released<char, g_free> escaped(g_dbus_address_escape_value(path.c_str()));
    const auto address = std::string("unix:path=") + escaped.get();
    const char* session = g_getenv("DBUS_SESSION_BUS_ADDRESS");
    if (session != nullptr && std::string(session).starts_with(address)) {
        return nullptr;
    }
    constexpr auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    // GIO waits without end for the first word of a bus that takes the connection and says nothing.
    const TimeLimit limit;
    return Bus(g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, limit.cancellable(),
                                                      nullptr));
}

} // namespace

void putInScopeOfItsOwn(GDBusConnection* bus, const std::string& entryStem, std::int64_t pid) {
    const auto name = scopeName(entryStem, pid);
    if (name.empty() || pid <= 0 || (bus != nullptr && startScope(bus, name, entryStem, pid))) {
        return;
    }
    if (const auto other = userManagerBus()) {
        startScope(other.get(), name, entryStem, pid);
    }
}

} // namespace quillary
