#pragma once

#include "platform/Menu.h"

#include <QObject>
#include <QPoint>

#include <functional>
#include <memory>
#include <optional>

class QWidget;

namespace quillary {

/// Shows a Menu at a point of a window, as a context menu of the system. At most one is open in the whole
/// program. AppKit runs a tracking loop until the menu closes.
class MacPopUpMenu final : public QObject {
    Q_OBJECT

public:
    /// Opens a menu with its corner at a point of the widget (points, origin top-left), after closing the one
    /// that is open, if any. `closed` runs once, after the handler of the chosen entry, if any. When the
    /// owner is destroyed first, the menu closes and neither runs. When that handler destroys the owner or
    /// calls `drop` for it, `closed` does not run.
    static void popUp(Menu menu, QWidget& window, QPoint location, QObject& owner,
                      std::function<void()> closed);
    /// Closes the owner's menu, if it has one open, without running `closed`.
    static void drop(const QObject& owner);

    ~MacPopUpMenu() override;

private:
    struct Native;

    MacPopUpMenu(Menu menu, QWidget& window, QPoint location, QObject& owner, std::function<void()> closed);
    void open();
    void finish();

    Menu m_menu;
    QPoint m_location;
    std::function<void()> m_closed;
    std::optional<ClosureMenuItem> m_chosen;
    std::unique_ptr<Native> m_native;
};

} // namespace quillary
