#pragma once

#include "platform/linux/glib/Released.h"

#include <gio/gio.h>

#include <chrono>
#include <string>

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
    explicit BusOperation(const Service& called);

    enum class Outcome {
        answered,
        /// Nobody has that name on the bus, or there is no bus.
        absent,
        failed,
    };
    struct Answer {
        Outcome outcome = Outcome::failed;
        /// Null unless answered.
        Released<GVariant, g_variant_unref> value;
        /// Why it failed; empty unless it did.
        std::string error;
    };
    /// Takes over `arguments` when they are floating. An answer of another type than `answerType` is a
    /// failure.
    [[nodiscard]] Answer call(const char* method, GVariant* arguments, const char* answerType);

private:
    [[nodiscard]] std::chrono::milliseconds timeLeft() const;

    Service service;
    std::chrono::steady_clock::time_point end;
};

} // namespace quillary
