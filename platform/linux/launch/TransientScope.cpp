#include "platform/linux/launch/TransientScope.h"

#include "platform/linux/bus/BoundedCall.h"
#include "platform/linux/glib/Released.h"
#include "platform/linux/windows/UnitName.h"

#include <gio/gio.h>

#include <chrono>
#include <filesystem>

namespace quillary {

namespace {

// For connecting, and again for the call.
constexpr std::chrono::milliseconds patience{2000};

using Bus = Released<GDBusConnection, g_object_unref>;

GVariant* properties(const std::string& entryStem, std::int64_t pid) {
    GVariantBuilder list;
    g_variant_builder_init(&list, G_VARIANT_TYPE("a(sv)"));
    const auto number = static_cast<guint32>(pid);
    g_variant_builder_add(&list, "(sv)", "PIDs",
                          g_variant_new_fixed_array(G_VARIANT_TYPE_UINT32, &number, 1, sizeof number));
    g_variant_builder_add(&list, "(sv)", "Description", g_variant_new_string(entryStem.c_str()));
    g_variant_builder_add(&list, "(sv)", "Slice", g_variant_new_string("app.slice"));
    // Otherwise the manager keeps a scope whose processes failed in its list.
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
        "StartTransientUnit", arguments, nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START,
        static_cast<int>(patience.count()), nullptr, nullptr));
    return answer != nullptr;
}

// The address of the user manager's own bus; empty when there is none, or when it is the session's. Sessions
// whose bus isn't the user manager's (an X session under dbus-run-session) may still have that manager.
std::string userManagerAddress() {
    const char* runtime = g_getenv("XDG_RUNTIME_DIR");
    const auto path = std::filesystem::path(runtime != nullptr ? runtime : "") / "bus";
    std::error_code error;
    if (!path.is_absolute() || !std::filesystem::is_socket(path, error)) {
        return {};
    }
    const Released<char, g_free> escaped(g_dbus_address_escape_value(path.c_str()));
    auto address = std::string("unix:path=") + escaped.get();
    const char* session = g_getenv("DBUS_SESSION_BUS_ADDRESS");
    return session != nullptr && std::string(session).starts_with(address) ? std::string() : address;
}

BoundedCall<Bus> connectTo(const std::string& address) {
    return BoundedCall<Bus>([address](GCancellable* cancellable) {
        constexpr auto flags = static_cast<GDBusConnectionFlags>(
            G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
        return Bus(
            g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, cancellable, nullptr));
    });
}

} // namespace

void putInScopeOfItsOwn(GDBusConnection* bus, const std::string& entryStem, std::int64_t pid) {
    const auto name = scopeName(entryStem, pid);
    if (name.empty() || pid <= 0 || (bus != nullptr && startScope(bus, name, entryStem, pid))) {
        return;
    }
    const auto address = userManagerAddress();
    if (address.empty()) {
        return;
    }
    const auto connecting = connectTo(address);
    if (const auto* other = connecting.resultWithin(TimeLimit(patience)); other != nullptr && *other) {
        startScope(other->get(), name, entryStem, pid);
    }
}

} // namespace quillary
