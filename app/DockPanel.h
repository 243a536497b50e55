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
    /// Not on the screen yet. `showSettings` is what the menu calls for the settings. The platform must
    /// outlive the panel.
    DockPanel(std::shared_ptr<DockModel> model, ScreenInfo screen, std::shared_ptr<IconCache> icons,
              Platform& platform, std::function<void()> showSettings);
    ~DockPanel() override;

    /// Where a panel of this size stands on an edge of a visible frame: centred, moved inside, whole points.
    /// One that is too large keeps its left or bottom end inside and runs out at the other. Global points.
    [[nodiscard]] static QRect placement(const QRectF& visibleFrame, DockEdge edge, QSize size);

    /// The screen in whose visible frame the dock is placed, from the next reposition on.
    void setTargetScreen(ScreenInfo screen);
    [[nodiscard]] const ScreenInfo& targetScreen() const { return m_targetScreen; }

    /// Puts the dock on the screen, hidden, and shows it 0.05 s later unless it hides itself.
    void present();
    /// Takes up the place and size that the screen, the configuration and the cells call for.
    void reposition();
    /// The pointer moved there, in global points: tracks it, and lets a press on the dock become a drag.
    void movePointer(QPointF location);
    /// Follows the pointer. Global points. Nothing happens while the dock's menu is open; it is asked for
    /// once more when that closes.
    void track(QPointF location);
    /// Tells whether a full-screen window covers the dock. A covered dock has no pointer and is not revealed.
    void setCovered(bool covered);
    /// The context menu for where the pointer is, built anew at each call.
    [[nodiscard]] Menu buildMenu();
    /// Takes the dock off the screen for good.
    void close();

    [[nodiscard]] DockModel& model() const { return *m_model; }
    /// Global points.
    [[nodiscard]] QRect frame() const { return m_frame; }
    [[nodiscard]] bool isVisible() const;
    /// A picture of the dock at the screen's scale; null when it cannot be made.
    [[nodiscard]] QImage grab();
    /// What the dock shows.
    [[nodiscard]] const DockView& contents() const { return *m_contents; }
    /// The native window, for its place among the program's windows; null before `present`.
    [[nodiscard]] QWindow* nativeWindow() const;

private:
    void followConfig();
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
    QRect m_frame;
    bool m_autoHide;
    bool m_covered = false;
    bool m_menuOpen = false;

    // The window dresses the view and must go first.
    std::unique_ptr<DockView> m_contents;
    std::unique_ptr<PanelWindow> m_window;

    std::unique_ptr<ScheduledTask> m_hideWork;
    std::unique_ptr<ScheduledTask> m_showWork;
    std::unique_ptr<ScheduledTask> m_repositionWork;
};

} // namespace quillary
