#pragma once

#include "core/Result.h"
#include "platform/linux/bus/TimeLimit.h"
#include "platform/linux/glib/Released.h"

#include <gio/gio.h>

namespace quillary {

/// Calls to one service of the session bus that together may take a second, so that the main thread can wait
/// for them. A service that doesn't run is not started.
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
    /// Takes over `arguments` when they are floating. An answer of another type than `answerType` is a
    /// failure.
    [[nodiscard]] Result<Answer> call(const char* method, GVariant* arguments, const char* answerType);

private:
    Service m_service;
    TimeLimit m_limit;
};

} // namespace quillary
