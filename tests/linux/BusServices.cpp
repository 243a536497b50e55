#include "tests/linux/BusServices.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillary::test {

BusServices::BusServices() {
    constexpr auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    m_bus.reset(g_dbus_connection_new_for_address_sync(std::getenv("DBUS_SESSION_BUS_ADDRESS"), flags,
                                                       nullptr, nullptr, nullptr));
    // GIO runs the filter in its own thread.
    g_dbus_connection_add_filter(m_bus.get(), answer, this, nullptr);
}

BusServices::~BusServices() {
    g_dbus_connection_close_sync(m_bus.get(), nullptr, nullptr);
}

void BusServices::own(const char* name) {
    const Released<GVariant, g_variant_unref> reply(g_dbus_connection_call_sync(
        m_bus.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
        g_variant_new("(su)", name, 0U), nullptr, G_DBUS_CALL_FLAGS_NONE, 5000, nullptr, nullptr));
    ASSERT_NE(reply, nullptr);
}

std::vector<std::string> BusServices::calls() {
    const std::lock_guard guard(m_lock);
    return m_recorded;
}

GDBusMessage* BusServices::answer(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                  gpointer data) {
    auto& self = *static_cast<BusServices*>(data);
    if (incoming == FALSE || g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL) {
        return message;
    }
    auto* body = g_dbus_message_get_body(message);
    const Released<char, g_free> text(body != nullptr ? g_variant_print(body, FALSE) : g_strdup(""));
    {
        const std::lock_guard guard(self.m_lock);
        self.m_recorded.push_back(std::string(g_dbus_message_get_member(message)) + text.get());
    }
    GDBusMessage* reply = nullptr;
    if (self.refuses) {
        reply = g_dbus_message_new_method_error_literal(message, "org.test.Refused", "refused");
    } else {
        reply = g_dbus_message_new_method_reply(message);
    }
    g_dbus_connection_send_message(connection, reply, G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr);
    g_object_unref(reply);
    g_object_unref(message);
    return nullptr;
}

} // namespace quillary::test
