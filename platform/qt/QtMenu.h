#pragma once

#include "platform/Menu.h"

#include <QObject>
#include <QPoint>
#include <QRect>

#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>

class QAction;
class QKeyEvent;
class QMenu;
class QMouseEvent;
class QWindow;

namespace quillary {

/// Shows a Menu as a QMenu that grabs the pointer and the keyboard until it closes, so that a window that
/// never has the focus can open one. At most one is open in the whole program.
///
/// Typing the first letter of a title selects that line; Control and an entry's keyEquivalent choose the
/// entry. A click elsewhere closes the menu and has no other effect, except that a click of the right button
/// on another window of the program is delivered to that window afterwards.
class QtMenu final : public QObject {
    Q_OBJECT

public:
    /// Where a menu opens. Global points.
    struct Place {
        /// Where one of the menu's corners is placed.
        QPoint corner;
        /// The frame of the screen, which must contain the whole menu.
        QRect frame;
        /// Grabs the pointer and the keyboard for the menu's window. False when another program holds one of
        /// them; the call is then repeated a little later. Null where Qt's own grab is reliable.
        std::function<bool(QWindow&)> grab{};
    };

    /// Opens a menu, after closing the one that is open, if any. `closed` runs once, after the handler of the
    /// chosen entry, if any. When the owner is destroyed first, the menu closes and neither runs. When that
    /// handler destroys the owner or calls `drop` for it, `closed` does not run.
    static void popUp(Menu menu, const Place& place, QObject& owner, std::function<void()> closed);
    /// Closes the menu that is open, if any; its `closed` has run when this returns.
    static void closeOpen();
    /// Closes the owner's menu, if it has one open, without running `closed`. May be called by a handler of
    /// the menu's entries.
    static void drop(const QObject& owner);
    [[nodiscard]] static bool isOpen();

    ~QtMenu() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QtMenu(Menu menu, const Place& place, QObject& owner, std::function<void()> closed);

    void fill(QMenu& shown, const Menu& items);
    void open();
    void holdGrab();
    void fit(QMenu& shown) const;
    [[nodiscard]] QPoint cornerOf(QSize size) const;
    void handlePress(const QMouseEvent& event);
    [[nodiscard]] bool handleKey(QMenu& shown, const QKeyEvent& event);
    [[nodiscard]] QAction* equivalentOf(const QKeyEvent& event) const;
    void finish();

    Menu m_menu;
    Place m_place;
    std::function<void()> m_closed;
    std::unique_ptr<QMenu> m_widget;
    // Those of the submenus too. They point into m_menu.
    std::unordered_map<const QAction*, const ClosureMenuItem*> m_entries;
    const ClosureMenuItem* m_chosen = nullptr;
    // The location of a right click that closed the menu, in global points.
    std::optional<QPoint> m_clickedElsewhere;
    int m_grabAttempts = 0;
    bool m_finished = false;
};

} // namespace quillary
