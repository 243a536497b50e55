#pragma once

#include "platform/linux/glib/Released.h"

#include <gio/gio.h>

#include <mutex>
#include <string>
#include <vector>

namespace quillary::test {

/// Owns names on the session bus and answers every call, also while the test waits in a call of its own.
class BusServices {
public:
    /// On the bus that DBUS_SESSION_BUS_ADDRESS names.
    BusServices();
    BusServices(const BusServices&) = delete;
    BusServices& operator=(const BusServices&) = delete;
    ~BusServices();

    void own(const char* name);
    /// The calls so far, each the method and its arguments as GVariant text.
    [[nodiscard]] std::vector<std::string> calls();

    /// Whether every call is answered by an error.
    bool refuses = false;

private:
    static GDBusMessage* answer(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                gpointer data);

    Released<GDBusConnection, g_object_unref> m_bus;
    std::mutex m_lock;
    std::vector<std::string> m_recorded;
};

} // namespace quillary::test
