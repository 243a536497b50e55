#pragma once

#include "platform/Menu.h"
#include "platform/StatusItem.h"

#include <QIcon>

#include <functional>
#include <memory>

namespace quillary {

/// The program's symbol in the menu bar: the system's symbol "dock.rectangle", or the given icon where the
/// system does not have it.
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
