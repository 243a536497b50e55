#pragma once

#include "core/Result.h"
#include "platform/linux/bus/TimeLimit.h"
#include "platform/linux/glib/Released.h"

#include <gio/gio.h>

namespace quillary {

/// Calls to one service on the session bus that may take one second altogether, so that the main thread can
/// wait for them. A service that isn't running is not started.
class BusOperation {
public:
    struct Service {
        const char* name;
        const char* path;
        const char* interfaceName;
    };
    explicit BusOperation(const Service& service);

    /// Null when no service has that name on the bus, or there is no bus.
    using Answer = Released<GVariant, g_variant_unref>;
    /// Consumes `arguments` when the reference is floating. Fails when the service returns an error, does not
    /// answer in time, or answers with another type than `answerType`.
    [[nodiscard]] Result<Answer> call(const char* method, GVariant* arguments, const char* answerType);

private:
    Service m_service;
    TimeLimit m_limit;
};

} // namespace quillary
