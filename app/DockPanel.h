#pragma once

#include "app/DockGeometry.h"
#include "platform/Menu.h"
#include "platform/ScreenInfo.h"

#include <QImage>
#include <QObject>
#include <QPointF>
#include <QRect>

#include <functional>
#include <memory>

class QWindow;

namespace quillary {

class DockModel;
class DockView;
class IconCache;
class PanelWindow;
class Platform;
class ScheduledTask;

/// The window of one dock: where it stands, when it is hidden, which of its points take clicks, and what the
/// pointer does to it. It draws nothing itself; its DockView does.
class DockPanel : public QObject {
    Q_OBJECT

public:
    /// Not shown yet. The menu's "Settings…" calls `showSettings`. The platform must outlive the panel.
    DockPanel(std::shared_ptr<DockModel> model, ScreenInfo screen, std::shared_ptr<IconCache> icons,
              Platform& platform, std::function<void()> showSettings);
    ~DockPanel() override;

    /// The frame of a panel of this size at an edge of a visible frame: centred, moved inside, in whole
    /// global points. A panel that is too large keeps its left or bottom end inside.
    [[nodiscard]] static QRect placement(const QRectF& visibleFrame, DockEdge edge, QSize size);

    /// The screen in whose visible frame the dock is placed, from the next reposition on.
    void setTargetScreen(ScreenInfo screen);
    [[nodiscard]] const ScreenInfo& targetScreen() const { return m_targetScreen; }

    /// Puts the dock on the screen, hidden, and shows it 0.05 s later unless it hides itself.
    void present();
    /// Moves and resizes the window to fit the screen, the configuration and the cells.
    void reposition();
    /// Handles a movement of the pointer to `location` (global points): tracks it, and turns a press on the
    /// dock into a drag where it went far enough.
    void movePointer(QPointF location);
    /// Follows the pointer to `location` (global points). Does nothing while the dock's menu is open; when
    /// that closes, the pointer is queried once.
    void track(QPointF location);
    /// Sets whether a full-screen window covers the dock. A covered dock ignores the pointer and is not
    /// revealed.
    void setCovered(bool covered);
    /// The context menu for the item under the pointer, built anew at each call.
    [[nodiscard]] Menu buildMenu();
    /// Takes the dock off the screen for good.
    void close();

    [[nodiscard]] DockModel& model() const { return *m_model; }
    /// Where the window is, which its window manager may have decided. Global points.
    [[nodiscard]] QRect frame() const;
    [[nodiscard]] bool isVisible() const;
    /// A picture of the dock at the screen's scale; null when it cannot be made.
    [[nodiscard]] QImage grab();
    /// What the dock shows.
    [[nodiscard]] const DockView& contents() const { return *m_contents; }
    /// The native window, to find its index among the program's windows; null before `present`.
    [[nodiscard]] QWindow* nativeWindow() const;

private:
    void followConfig();
    void followFrame();
    void followHidden();
    void repositionSoon();
    void trackShown(QPointF location);
    void trackHidden(QPointF location);
    void scheduleHide();
    void openMenu(QPointF position);
    void menuClosed();
    void updateInputRegion();
    [[nodiscard]] DockGeometry::Pointer pointer() const;
    [[nodiscard]] const DockGeometry& geometry() const;
    [[nodiscard]] QPointF panelPoint(QPointF location) const;

    std::shared_ptr<DockModel> m_model;
    ScreenInfo m_targetScreen;
    Platform& m_platform;
    std::function<void()> m_showSettings;
    bool m_autoHide;
    bool m_covered = false;
    bool m_menuOpen = false;

    // The window refers to the contents and must be destroyed first.
    std::unique_ptr<DockView> m_contents;
    std::unique_ptr<PanelWindow> m_window;

    std::unique_ptr<ScheduledTask> m_hideWork;
    std::unique_ptr<ScheduledTask> m_showWork;
    std::unique_ptr<ScheduledTask> m_repositionWork;
};

} // namespace quillary
