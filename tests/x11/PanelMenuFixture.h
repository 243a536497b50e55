#pragma once

#include "platform/qt/QtMenu.h"
#include "tests/x11/PanelFixture.h"

#include <QApplication>
#include <QMenu>

#include <algorithm>
#include <string>
#include <vector>

namespace quillary::test {

// Keysyms (X11 protocol, appendix A).
inline constexpr xcb_keysym_t keyReturn = 0xff0d;
inline constexpr xcb_keysym_t keyEscape = 0xff1b;
inline constexpr xcb_keysym_t keyLeft = 0xff51;
inline constexpr xcb_keysym_t keyUp = 0xff52;
inline constexpr xcb_keysym_t keyRight = 0xff53;
inline constexpr xcb_keysym_t keyDown = 0xff54;
inline constexpr xcb_keysym_t keyControl = 0xffe3;

/// A panel with a menu to open, whose entries write their titles into the log.
class PanelMenuFixture : public PanelFixture {
protected:
    void startMenus(const QRect& frame = QRect(300, 780, 600, 120)) {
        ASSERT_TRUE(display.startWindowManager());
        startPanel();
        present(frame);
        display.movePointer(QPoint(20, 20));
        settle();
    }
    [[nodiscard]] ClosureMenuItem entry(const std::string& title) {
        return {title, false, [this, title] { log.push_back(title); }};
    }
    [[nodiscard]] Menu sampleMenu() {
        Menu menu;
        menu.push_back(entry("Open & Close_it"));
        menu.push_back(entry("Hidden"));
        menu.back().enabled = false;
        menu.push_back(ClosureMenuItem::separator());
        menu.push_back(ClosureMenuItem::submenu("Position", {entry("Bottom"), entry("Left")}));
        menu.push_back(ClosureMenuItem("Auto-hide", true, [this] { log.emplace_back("Auto-hide"); }));
        menu.push_back(entry("Quit"));
        menu.back().keyEquivalent = 'q';
        return menu;
    }
    void open(QPoint location, X11PanelWindow* over = nullptr) {
        (over == nullptr ? panel.get() : over)->popUpMenu(sampleMenu(), location, [this] {
            log.emplace_back("closed");
        });
    }
    /// The menus that are seen, the first opened first.
    [[nodiscard]] static std::vector<QMenu*> shown() {
        std::vector<QMenu*> menus;
        for (auto* candidate : QApplication::topLevelWidgets()) {
            auto* menu = qobject_cast<QMenu*>(candidate);
            if (menu != nullptr && menu->isVisible()) {
                menus.push_back(menu);
            }
        }
        std::sort(menus.begin(), menus.end(),
                  [](const QMenu* a, const QMenu* b) { return a->parentWidget() < b->parentWidget(); });
        return menus;
    }
    [[nodiscard]] bool openSeen() {
        return eventually([this] {
            return !shown().empty() && display.isViewable(xcb_window_t(shown().front()->winId()));
        });
    }
    [[nodiscard]] static QPoint centreOf(const QMenu& menu, int line) {
        return menu.mapToGlobal(menu.actionGeometry(menu.actions().at(line)).center());
    }
    [[nodiscard]] bool logs(const std::vector<std::string>& lines) {
        return eventually([&] { return log == lines; });
    }
    [[nodiscard]] static QString activeTitle(const QMenu& menu) {
        return menu.activeAction() == nullptr ? QString() : menu.activeAction()->text();
    }

    std::vector<std::string> log;
};

} // namespace quillary::test
