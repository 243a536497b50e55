#pragma once

#include <optional>
#include <string>

namespace quillary {

/// Whether the system starts the program when the user logs in.
class LoginItem {
public:
    enum class Status { disabled, enabled };

    virtual ~LoginItem() = default;

    /// The present state, read from the system at each call.
    [[nodiscard]] virtual Status status() const = 0;
    /// Makes the system start the program at login. Returns the error's description when the system refuses.
    [[nodiscard]] virtual std::optional<std::string> registerItem() = 0;
    /// Undoes registerItem. Returns the error's description when the system refuses.
    [[nodiscard]] virtual std::optional<std::string> unregisterItem() = 0;
};

} // namespace quillary
