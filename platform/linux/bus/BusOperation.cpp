#include "platform/linux/bus/BusOperation.h"

#include "platform/linux/bus/SessionBus.h"
#include "platform/linux/glib/GlibText.h"

#include <chrono>

namespace quillary {

namespace {

constexpr std::chrono::milliseconds longestOperation{1000};

Result<BusOperation::Answer> ofError(GError* error) {
    if (g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_SERVICE_UNKNOWN) != 0 ||
        g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_NAME_HAS_NO_OWNER) != 0) {
        return nullptr;
    }
    if (g_error_matches(error, G_IO_ERROR, G_IO_ERROR_TIMED_OUT) != 0) {
        return Failure("no answer");
    }
    g_dbus_error_strip_remote_error(error);
    return Failure(error->message);
}

} // namespace

BusOperation::BusOperation(const Service& service) : m_service(service), m_limit(longestOperation) {}

Result<BusOperation::Answer> BusOperation::call(const char* method, GVariant* arguments,
                                                const char* answerType) {
    const Released<GVariant, g_variant_unref> sent(g_variant_ref_sink(arguments));
    const auto connection = SessionBus::connect(m_limit);
    if (!connection) {
        return Failure(connection.error());
    }
    if (*connection == nullptr) {
        return nullptr;
    }
    const auto milliseconds = static_cast<int>(m_limit.left().count());
    if (milliseconds == 0) {
        return Failure("no answer");
    }
    GError* error = nullptr;
    Released<GVariant, g_variant_unref> value(g_dbus_connection_call_sync(
        *connection, m_service.name, m_service.path, m_service.interfaceName, method, sent.get(),
        G_VARIANT_TYPE(answerType), G_DBUS_CALL_FLAGS_NO_AUTO_START, milliseconds, nullptr, &error));
    if (!value) {
        const Released<GError, g_error_free> owner(error);
        return ofError(error);
    }
    return value;
}

} // namespace quillary
