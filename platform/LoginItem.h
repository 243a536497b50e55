#pragma once

#include <optional>
#include <string>

namespace quillary {

/// Whether the system starts the program when the user logs in.
class LoginItem {
public:
    enum class Status { disabled, enabled };

    virtual ~LoginItem() = default;

    /// What the system says now.
    [[nodiscard]] virtual Status status() const = 0;
    /// Asks for it; the error's description when the system refuses.
    [[nodiscard]] virtual std::optional<std::string> registerItem() = 0;
    /// Takes it back; the error's description when the system refuses.
    [[nodiscard]] virtual std::optional<std::string> unregisterItem() = 0;
};

} // namespace quillary
