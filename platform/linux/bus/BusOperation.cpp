#include "platform/linux/bus/BusOperation.h"

#include "platform/linux/bus/SessionBus.h"
#include "platform/linux/glib/GlibText.h"

#include <algorithm>

namespace quillary {

namespace {

constexpr std::chrono::milliseconds longestOperation{1000};

BusOperation::Answer failure(std::string error) {
    return {.outcome = BusOperation::Outcome::failed, .value = nullptr, .error = std::move(error)};
}

BusOperation::Answer absence() {
    return {.outcome = BusOperation::Outcome::absent, .value = nullptr, .error = {}};
}

BusOperation::Answer ofError(GError* error) {
    if (g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_SERVICE_UNKNOWN) != 0 ||
        g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_NAME_HAS_NO_OWNER) != 0) {
        return absence();
    }
    if (g_error_matches(error, G_IO_ERROR, G_IO_ERROR_TIMED_OUT) != 0) {
        return failure("no answer");
    }
    g_dbus_error_strip_remote_error(error);
    return failure(error->message);
}

} // namespace

BusOperation::BusOperation(const Service& called)
    : service(called), end(std::chrono::steady_clock::now() + longestOperation) {}

std::chrono::milliseconds BusOperation::timeLeft() const {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    return std::max(left, std::chrono::milliseconds{0});
}

BusOperation::Answer BusOperation::call(const char* method, GVariant* arguments, const char* answerType) {
    const Released<GVariant, g_variant_unref> sent(g_variant_ref_sink(arguments));
    const auto connection = SessionBus::connect(timeLeft());
    if (connection.state == SessionBus::State::absent) {
        return absence();
    }
    if (connection.state == SessionBus::State::silent) {
        return failure("the session bus does not answer");
    }
    const auto milliseconds = static_cast<int>(timeLeft().count());
    if (milliseconds == 0) {
        return failure("no answer");
    }
    GError* error = nullptr;
    Released<GVariant, g_variant_unref> value(g_dbus_connection_call_sync(
        connection.bus, service.name, service.path, service.interfaceName, method, sent.get(),
        G_VARIANT_TYPE(answerType), G_DBUS_CALL_FLAGS_NO_AUTO_START, milliseconds, nullptr, &error));
    if (!value) {
        const Released<GError, g_error_free> owner(error);
        return ofError(error);
    }
    return {.outcome = Outcome::answered, .value = std::move(value), .error = {}};
}

} // namespace quillary
