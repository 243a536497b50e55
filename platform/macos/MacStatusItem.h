#pragma once

#include "platform/Menu.h"
#include "platform/StatusItem.h"

#include <QIcon>

#include <functional>
#include <memory>

namespace quillary {

/// The program's symbol in the system's menu bar: the system's own picture of a dock, or the given one where
/// the system has none.
class MacStatusItem final : public StatusItem {
    Q_OBJECT

public:
    MacStatusItem(const QIcon& symbol, const std::string& description, std::function<Menu()> menuNeedsUpdate);
    ~MacStatusItem() override;

    [[nodiscard]] bool isShown() const override;

private:
    struct Native;
    std::unique_ptr<Native> m_native;
};

} // namespace quillary
