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

/// A Menu shown as a popup of the toolkit, with pointer and keyboard grabbed until it closes: a window that
/// never has the focus can open one. One is open at most in the whole program.
///
/// Typing the first letter of a title goes to that line; Control with an entry's keyEquivalent chooses it. A
/// click elsewhere closes it and does nothing else, but one of the right button on another window of the
/// program reaches that window once the menu has gone.
class QtMenu final : public QObject {
    Q_OBJECT

public:
    /// Where a menu opens. Global points.
    struct Place {
        /// The point that one of its corners is at.
        QPoint corner;
        /// What all of it must lie in: the frame of the screen.
        QRect frame;
        /// Takes pointer and keyboard for the menu's window; false when another program holds them, and it is
        /// asked again a little later. Null where the toolkit's own grab is reliable.
        std::function<bool(QWindow&)> grab{};
    };

    /// Opens a menu; one that is open already closes first. `closed` runs once, after the handler of the
    /// entry that was chosen, if one was. When the owner is destroyed first the menu goes with it and neither
    /// runs.
    static void popUp(Menu menu, const Place& place, QObject& owner, std::function<void()> closed);
    /// Closes the menu that is open, if any; its `closed` has run when this returns.
    static void closeOpen();
    /// Takes the owner's menu away, if it has one open; its `closed` never runs.
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
    // The entries of the menu and its submenus.
    std::unordered_map<const QAction*, const ClosureMenuItem*> m_entries;
    const ClosureMenuItem* m_chosen = nullptr;
    // Where a click of the right button closed it, in global points.
    std::optional<QPoint> m_clickedElsewhere;
    int m_grabAttempts = 0;
    bool m_finished = false;
};

} // namespace quillary
