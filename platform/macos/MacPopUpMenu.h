#pragma once

#include "platform/Menu.h"

#include <QObject>
#include <QPoint>

#include <functional>
#include <memory>
#include <optional>

class QWidget;

namespace quillary {

/// A Menu that opens at a point of a window, as the system opens context menus. One is open at most in the
/// whole program. The system follows the pointer in a loop of its own until the menu closes.
class MacPopUpMenu final : public QObject {
    Q_OBJECT

public:
    /// Opens a menu with its corner at a point of the widget (points, origin top-left); one that is open
    /// already closes first. `closed` runs once, after the handler of the entry that was chosen, if one was.
    /// When the owner is destroyed first the menu goes with it and neither runs.
    static void popUp(Menu menu, QWidget& window, QPoint location, QObject& owner,
                      std::function<void()> closed);
    /// Takes the owner's menu away, if it has one open; its `closed` never runs.
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
