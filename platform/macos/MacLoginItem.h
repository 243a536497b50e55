#pragma once

#include "platform/LoginItem.h"

namespace quillary {

/// The program's own entry among the user's login items. The system refuses it for a program that is no
/// bundle.
class MacLoginItem final : public LoginItem {
public:
    [[nodiscard]] Status status() const override;
    [[nodiscard]] std::optional<std::string> registerItem() override;
    [[nodiscard]] std::optional<std::string> unregisterItem() override;
};

} // namespace quillary
