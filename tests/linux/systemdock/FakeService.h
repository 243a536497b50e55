#pragma once

#include "platform/linux/glib/Released.h"

#include <gio/gio.h>

#include <atomic>
#include <mutex>
#include <string>
#include <vector>

namespace quillary::test {

/// A service on the private session bus. It answers in a thread of its own, so that a test that waits in a
/// call is answered too.
class FakeService {
public:
    using Value = Released<GVariant, g_variant_unref>;
    enum class Manner { answers, refuses, isSilent };

    FakeService();
    virtual ~FakeService();
    FakeService(const FakeService&) = delete;
    FakeService& operator=(const FakeService&) = delete;

    /// Ends its connection to the bus, as a process that dies does.
    void leave();
    /// How calls that change something are met; those that only read follow `readManner`.
    std::atomic<Manner> manner = Manner::answers;
    std::atomic<Manner> readManner = Manner::answers;

    /// The calls that came, with their arguments, and forgets them.
    [[nodiscard]] std::vector<std::string> takeCalls();

protected:
    /// Takes the name on the bus. Calls come from then on, so nothing of the service may be missing.
    void own(const char* name);
    [[nodiscard]] virtual bool isReading(const std::string& method, GVariant* arguments) const = 0;
    /// The answer, floating; null for one without values. `lock` is held.
    [[nodiscard]] virtual GVariant* answer(const std::string& method, GVariant* arguments) = 0;

    mutable std::mutex lock;

private:
    static GDBusMessage* filter(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                gpointer data);
    void meet(GDBusMessage* message);

    Released<GDBusConnection, g_object_unref> bus;
    std::vector<std::string> calls;
};

} // namespace quillary::test
