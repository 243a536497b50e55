#pragma once

#include "core/Result.h"

namespace quillary {

/// Whether the system starts the program when the user logs in.
class LoginItem {
public:
    enum class Status { disabled, enabled };

    virtual ~LoginItem() = default;

    /// The present state, read from the system at each call.
    [[nodiscard]] virtual Status status() const = 0;
    /// Asks the system to start the program at login. Fails with the description of the system's error.
    [[nodiscard]] virtual Result<> registerItem() = 0;
    /// Asks the system not to start it any more. Fails likewise.
    [[nodiscard]] virtual Result<> unregisterItem() = 0;
};

} // namespace quillary
