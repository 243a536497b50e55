#include "platform/linux/bus/SessionBus.h"

#include "platform/linux/glib/Released.h"

#include <gio/gio.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace quillary::SessionBus {

namespace {

// Starting a file manager takes seconds on a cold disk; D-Bus itself gives up after 25.
constexpr int showTimeoutMilliseconds = 25000;

struct Attempt {
    std::mutex lock;
    std::condition_variable finished;
    bool isFinished = false;
    GDBusConnection* bus = nullptr;
};

// GIO's own connecting can't be interrupted once a peer has taken the connection and says nothing, so it runs
// in a thread that may wait for ever; there is one for the whole run.
std::shared_ptr<Attempt> startAttempt() {
    auto attempt = std::make_shared<Attempt>();
    std::thread([attempt] {
        auto* bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
        if (bus != nullptr) {
            g_dbus_connection_set_exit_on_close(bus, FALSE);
        }
        const std::lock_guard guard(attempt->lock);
        attempt->bus = bus;
        attempt->isFinished = true;
        attempt->finished.notify_all();
    }).detach();
    return attempt;
}

struct Current {
    std::mutex lock;
    std::shared_ptr<Attempt> attempt;
};

Current& current() {
    // Never destroyed: a worker may still ask for it while the program ends.
    static auto& instance = *new Current;
    return instance;
}

std::shared_ptr<Attempt> currentAttempt() {
    auto& [lock, attempt] = current();
    const std::lock_guard guard(lock);
    if (attempt) {
        const std::lock_guard attemptGuard(attempt->lock);
        const bool failed = attempt->isFinished && attempt->bus == nullptr;
        const bool lost = attempt->bus != nullptr && g_dbus_connection_is_closed(attempt->bus) != 0;
        if (!failed && !lost) {
            return attempt;
        }
    }
    attempt = startAttempt();
    return attempt;
}

} // namespace

Result<GDBusConnection*> connect(std::chrono::milliseconds longest) {
    const auto attempt = currentAttempt();
    std::unique_lock guard(attempt->lock);
    if (!attempt->finished.wait_for(guard, longest, [&attempt] { return attempt->isFinished; })) {
        return Failure("the session bus does not answer");
    }
    return attempt->bus;
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
