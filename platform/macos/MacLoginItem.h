#pragma once

#include "platform/LoginItem.h"

namespace quillary {

/// The program's entry among the user's login items (SMAppService). The system refuses to register a program
/// that is not a bundle.
class MacLoginItem final : public LoginItem {
public:
    [[nodiscard]] Status status() const override;
    [[nodiscard]] Result<> registerItem() override;
    [[nodiscard]] Result<> unregisterItem() override;
};

} // namespace quillary
