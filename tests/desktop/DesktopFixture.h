#pragma once

#include "tests/desktop/Home.h"
#include "tests/desktop/Program.h"
#include "tests/x11/VirtualDisplay.h"

#include <QImage>
#include <QRegion>

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

inline void PrintTo(const QRect& rect, std::ostream* out) {
    *out << rect.width() << "×" << rect.height() << "+" << rect.x() << "+" << rect.y();
}

namespace quillary::test {

/// The program on a desktop of two monitors: LEFT, 1280×900 at the origin, and RIGHT, 1120×800 beside it.
/// Everything is in device pixels of the root window.
class DesktopFixture : public testing::Test {
protected:
    DesktopFixture() = default;
    /// On another server there are no monitors but its own.
    explicit DesktopFixture(VirtualDisplay::Server kind) : server(kind) {}

    void SetUp() override;

    /// Starts the program and waits until that many docks are seen.
    void startWithDocks(std::size_t count);
    static bool eventually(const std::function<bool()>& condition) {
        return VirtualDisplay::waitUntil(condition, 4 * VirtualDisplay::deadline);
    }

    /// The program's windows of the dock type that are seen, from left to right.
    [[nodiscard]] std::vector<xcb_window_t> docks() const;
    /// The program's windows that no window manager places and that are seen: its menus, the topmost last.
    [[nodiscard]] std::vector<xcb_window_t> popups() const;
    /// Waits until that many popups are seen and the topmost has the keyboard: keys typed before that would
    /// go elsewhere.
    [[nodiscard]] bool popupsTakeKeys(std::size_t count) const;
    /// The places of the docks.
    [[nodiscard]] std::vector<QRect> places() const;
    /// Waits until the docks stand exactly there; reports where they stand when they don't.
    [[nodiscard]] testing::AssertionResult standAt(const std::vector<QRect>& expected) const;
    /// The docks on the two monitors; none when there isn't exactly one dock there.
    [[nodiscard]] xcb_window_t leftDock() const { return dockIn(QRect(0, 0, 1280, 900)); }
    [[nodiscard]] xcb_window_t rightDock() const { return dockIn(QRect(1280, 0, 1120, 800)); }
    /// Where a window takes clicks, in its own coordinates.
    [[nodiscard]] QRegion inputShape(xcb_window_t window) const;
    /// All windows on the display, seen or not.
    [[nodiscard]] std::size_t windowCount() const;

    /// The managed window whose class is `id`; none when there is none.
    [[nodiscard]] xcb_window_t windowOf(const std::string& id) const;
    [[nodiscard]] bool isActive(xcb_window_t window) const;
    /// Whether `upper` is the highest of the applications' windows.
    [[nodiscard]] bool isOnTop(xcb_window_t upper) const;

    /// Paints the desktop, for compositors too.
    void paintWallpaper(QColor colour);
    /// What encloses the pixels of exactly that colour inside `area`; null when there are none.
    [[nodiscard]] QRect colourBox(QColor colour, const QRect& area = QRect(0, 0, 2400, 900)) const;
    [[nodiscard]] QColor colourAt(QPoint place) const { return QColor::fromRgb(display.pixel(place)); }

    // In this order: the display dies before the home in which its programs live.
    Home home;
    VirtualDisplay::Server server = VirtualDisplay::Server::xvfb;
    VirtualDisplay display{server};
    Program program{home};

private:
    [[nodiscard]] xcb_window_t dockIn(const QRect& monitor) const;
    [[nodiscard]] bool belongsToProgram(xcb_window_t window) const;
    [[nodiscard]] bool isPopup(xcb_window_t window) const;
    void collect(xcb_window_t parent, std::vector<xcb_window_t>& found) const;
};

} // namespace quillary::test
