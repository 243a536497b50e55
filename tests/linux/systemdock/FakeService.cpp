#include "tests/linux/systemdock/FakeService.h"

#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace quillary::test {

FakeService::FakeService() {
    constexpr auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    m_bus.reset(g_dbus_connection_new_for_address_sync(std::getenv("DBUS_SESSION_BUS_ADDRESS"), flags,
                                                       nullptr, nullptr, nullptr));
    if (!m_bus) {
        throw std::runtime_error("no bus");
    }
    g_dbus_connection_add_filter(m_bus.get(), filter, this, nullptr);
}

void FakeService::own(const char* name) {
    const Value reply(g_dbus_connection_call_sync(
        m_bus.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
        g_variant_new("(su)", name, 0U), nullptr, G_DBUS_CALL_FLAGS_NONE, 5000, nullptr, nullptr));
    if (!reply) {
        throw std::runtime_error("no name");
    }
}

FakeService::~FakeService() {
    leave();
}

void FakeService::leave() {
    g_dbus_connection_close_sync(m_bus.get(), nullptr, nullptr);
}

std::vector<std::string> FakeService::takeCalls() {
    const std::lock_guard guard(lock);
    return std::exchange(m_calls, {});
}

GDBusMessage* FakeService::filter(GDBusConnection* /*connection*/, GDBusMessage* message, gboolean incoming,
                                  gpointer data) {
    if (incoming == FALSE || g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL) {
        return message;
    }
    static_cast<FakeService*>(data)->meet(message);
    g_object_unref(message);
    return nullptr;
}

void FakeService::meet(GDBusMessage* message) {
    const std::lock_guard guard(lock);
    const std::string method = g_dbus_message_get_member(message);
    auto* body = g_dbus_message_get_body(message);
    const Released<char, g_free> text(g_variant_print(body, FALSE));
    m_calls.push_back(method + text.get());
    const Manner current = isReading(method, body) ? readManner : manner;
    if (current == Manner::isSilent) {
        return;
    }
    Released<GDBusMessage, g_object_unref> reply(
        current == Manner::refuses
            ? g_dbus_message_new_method_error_literal(message, "org.test.Refused", "it is locked")
            : g_dbus_message_new_method_reply(message));
    if (auto* values = current == Manner::answers ? answer(method, body) : nullptr) {
        g_dbus_message_set_body(reply.get(), values);
    }
    g_dbus_connection_send_message(m_bus.get(), reply.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr,
                                   nullptr);
}

} // namespace quillary::test
