#include "platform/linux/bus/SessionBus.h"

#include "platform/linux/bus/BoundedCall.h"
#include "platform/linux/glib/Released.h"

#include <gio/gio.h>

#include <memory>
#include <mutex>

namespace quillary::SessionBus {

namespace {

// Starting a file manager takes seconds from a cold disk; 25 s is the usual timeout of D-Bus.
constexpr int showTimeoutMilliseconds = 25000;

// The one attempt of the whole run: GIO shares the connection, so its users share the wait for it too.
using Attempt = BoundedCall<GDBusConnection*>;

std::shared_ptr<const Attempt> startAttempt() {
    return std::make_shared<const Attempt>([](GCancellable* /*cancellable*/) {
        auto* bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
        if (bus != nullptr) {
            g_dbus_connection_set_exit_on_close(bus, FALSE);
        }
        return bus;
    });
}

struct Current {
    std::mutex lock;
    std::shared_ptr<const Attempt> attempt;
};

Current& current() {
    // Never destroyed: a worker may still ask for it while the program ends.
    static auto& instance = *new Current;
    return instance;
}

// Whether the attempt has ended without a connection, or its connection was lost.
bool isSpent(const Attempt& attempt) {
    auto* const* bus = attempt.resultWithin(TimeLimit(std::chrono::milliseconds(0)));
    return bus != nullptr && (*bus == nullptr || g_dbus_connection_is_closed(*bus) != 0);
}

std::shared_ptr<const Attempt> currentAttempt() {
    auto& [lock, attempt] = current();
    const std::lock_guard guard(lock);
    if (!attempt || isSpent(*attempt)) {
        attempt = startAttempt();
    }
    return attempt;
}

} // namespace

Result<GDBusConnection*> connect(const TimeLimit& limit) {
    const auto attempt = currentAttempt();
    if (auto* const* bus = attempt->resultWithin(limit)) {
        return *bus;
    }
    return Failure("the session bus does not answer");
}

bool showItems(GDBusConnection* bus, const std::vector<std::string>& uris, const std::string& startupId) {
    GVariantBuilder list;
    g_variant_builder_init(&list, G_VARIANT_TYPE("as"));
    for (const auto& uri : uris) {
        g_variant_builder_add(&list, "s", uri.c_str());
    }
    const Released<GVariant, g_variant_unref> answer(g_dbus_connection_call_sync(
        bus, "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1",
        "ShowItems", g_variant_new("(ass)", &list, startupId.c_str()), nullptr, G_DBUS_CALL_FLAGS_NONE,
        showTimeoutMilliseconds, nullptr, nullptr));
    return answer != nullptr;
}

} // namespace quillary::SessionBus
