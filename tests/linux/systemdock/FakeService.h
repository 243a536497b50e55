#pragma once

#include "platform/linux/glib/Released.h"

#include <gio/gio.h>

#include <atomic>
#include <mutex>
#include <string>
#include <vector>

namespace quillary::test {

/// A service on the private session bus. It answers on its own thread, so that a test may block in a call.
class FakeService {
public:
    using Value = Released<GVariant, g_variant_unref>;
    enum class Manner { answers, refuses, isSilent };

    FakeService();
    virtual ~FakeService();
    FakeService(const FakeService&) = delete;
    FakeService& operator=(const FakeService&) = delete;

    /// Closes the connection to the bus, as the end of a process does.
    void leave();
    /// How calls that change something are answered; `readManner` is for those that only read.
    std::atomic<Manner> manner = Manner::answers;
    std::atomic<Manner> readManner = Manner::answers;

    /// The calls since the last time, with their arguments.
    [[nodiscard]] std::vector<std::string> takeCalls();

protected:
    /// Takes the name on the bus. Calls may arrive from then on, so the service must be complete.
    void own(const char* name);
    [[nodiscard]] virtual bool isReading(const std::string& method, GVariant* arguments) const = 0;
    /// The answer as a floating reference; null for one without values. Called with `lock` held.
    [[nodiscard]] virtual GVariant* answer(const std::string& method, GVariant* arguments) = 0;

    mutable std::mutex lock;

private:
    static GDBusMessage* filter(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                gpointer data);
    void meet(GDBusMessage* message);

    Released<GDBusConnection, g_object_unref> m_bus;
    std::vector<std::string> m_calls;
};

} // namespace quillary::test
