#include "app/DockPanel.h"

#include "app/DockMenu.h"
#include "app/DockModel.h"
#include "app/RunningApps.h"
#include "app/view/DockView.h"
#include "platform/PanelWindow.h"
#include "platform/Platform.h"
#include "platform/PointerMonitor.h"
#include "platform/Scheduler.h"

#include <algorithm>
#include <cmath>

namespace quillary {

namespace {

constexpr double hideDelay = 0.6;
constexpr double showDelay = 0.05;

bool containsOrTouches(const QRect& frame, QPointF point) {
    const QRectF area(frame);
    return point.x() >= area.left() && point.x() <= area.right() && point.y() >= area.top() &&
           point.y() <= area.bottom();
}

// Both axes grow away from the side that an oversized panel keeps.
double placedInside(double origin, double length, double from, double to) {
    return std::min(std::max(origin, from), std::max(to - length, from));
}

int rounded(double value) {
    return static_cast<int>(std::lround(value));
}

} // namespace

DockPanel::DockPanel(std::shared_ptr<DockModel> model, ScreenInfo screen, std::shared_ptr<IconCache> icons,
                     Platform& platform, std::function<void()> showSettings)
    : m_model(std::move(model)),
      m_targetScreen(std::move(screen)),
      m_platform(platform),
      m_showSettings(std::move(showSettings)),
      m_autoHide(m_model->config().autoHide),
      m_contents(std::make_unique<DockView>(m_model, std::move(icons), m_platform)),
      m_window(m_platform.makePanelWindow(*m_contents)) {
    m_contents->attach(*m_window);
    m_window->setIgnoresMouseEvents(true);
    m_window->setInputRegion({});
    connect(m_contents.get(), &DockView::menuRequested, this, &DockPanel::openMenu);
    connect(m_model.get(), &DockModel::configChanged, this, &DockPanel::followConfig);
    connect(m_model.get(), &DockModel::hiddenChanged, this, &DockPanel::followHidden);
    connect(m_model->running.get(), &RunningApps::appsChanged, this, &DockPanel::repositionSoon);
    connect(m_window.get(), &PanelWindow::frameChanged, this, &DockPanel::followFrame);
    connect(m_window.get(), &PanelWindow::pointerCrossed, &m_platform.pointer(), &PointerMonitor::refresh);
}

DockPanel::~DockPanel() = default;

QRect DockPanel::placement(const QRectF& visibleFrame, DockEdge edge, QSize size) {
    const double width = size.width();
    const double height = size.height();
    // y is counted upwards from the bottom of the frame here, so that an oversized panel keeps its bottom
    // end.
    const double bottom = 0;
    const double top = visibleFrame.height();
    double x = visibleFrame.center().x() - width / 2;
    double y = (top - height) / 2;
    switch (edge) {
    case DockEdge::bottom:
        y = bottom;
        break;
    case DockEdge::top:
        y = top - height;
        break;
    case DockEdge::left:
        x = visibleFrame.left();
        break;
    case DockEdge::right:
        x = visibleFrame.right() - width;
        break;
    }
    x = placedInside(x, width, visibleFrame.left(), visibleFrame.right());
    y = placedInside(y, height, bottom, top);
    return {QPoint(rounded(x), rounded(visibleFrame.bottom() - y - height)), size};
}

void DockPanel::setTargetScreen(ScreenInfo screen) {
    m_targetScreen = std::move(screen);
}

void DockPanel::present() {
    m_model->setHidden(true);
    m_contents->settle();
    reposition();
    m_window->orderFront();
    m_showWork = m_platform.scheduler().after(showDelay, [this] {
        if (!m_model->config().autoHide) {
            m_model->setHidden(false);
        }
    });
}

void DockPanel::reposition() {
    const QRectF& visible = m_targetScreen.visibleFrame;
    const DockEdge edge = m_model->config().edge;
    const double length = isHorizontal(edge) ? visible.width() : visible.height();
    if (length != m_model->maxLength()) {
        m_model->setMaxLength(length);
    }
    const QRect before = frame();
    m_window->setFrame(placement(visible, edge, geometry().frameSize()));
    updateInputRegion();
    if (frame() != before) {
        followFrame();
    }
}

void DockPanel::followFrame() {
    // The dock moved under a resting pointer, which is at another place of the dock now.
    if (m_model->mouse()) {
        track(m_platform.pointer().location());
    }
}

void DockPanel::movePointer(QPointF location) {
    track(location);
    m_contents->movePointer(location);
}

void DockPanel::track(QPointF location) {
    if (m_menuOpen) {
        return;
    }
    if (m_model->hidden()) {
        trackHidden(location);
    } else {
        trackShown(location);
    }
}

void DockPanel::trackShown(QPointF location) {
    const bool wasInside = m_model->mouse().has_value();
    std::optional<QPointF> mouse;
    if (!m_covered && containsOrTouches(frame(), location)) {
        const QPointF point = panelPoint(location);
        if (geometry().isInZone(point, pointer())) {
            mouse = point;
        }
    }
    const bool inside = mouse.has_value();
    m_window->setIgnoresMouseEvents(!inside);
    m_model->setMouse(mouse);
    if (inside != wasInside) {
        updateInputRegion();
    }
    if (!m_model->config().autoHide) {
        return;
    }
    if (inside) {
        m_hideWork.reset();
    } else if (!m_hideWork) {
        scheduleHide();
    }
}

void DockPanel::trackHidden(QPointF location) {
    m_window->setIgnoresMouseEvents(true);
    m_model->setMouse(std::nullopt);
    if (!m_covered && m_model->config().autoHide && geometry().isInRevealStrip(panelPoint(location))) {
        m_hideWork.reset();
        m_model->setHidden(false);
    }
}

void DockPanel::scheduleHide() {
    m_hideWork = m_platform.scheduler().after(hideDelay, [this] {
        m_hideWork.reset();
        m_model->setHidden(true);
    });
}

void DockPanel::setCovered(bool covered) {
    if (covered != m_covered) {
        m_covered = covered;
        track(m_platform.pointer().location());
    }
}

Menu DockPanel::buildMenu() {
    return dockMenu(m_model, m_platform, m_showSettings);
}

void DockPanel::openMenu(QPointF position) {
    // The press carries a newer position than the last movement.
    track(position + frame().topLeft());
    m_menuOpen = true;
    m_window->popUpMenu(buildMenu(), position.toPoint(), [this] { menuClosed(); });
}

void DockPanel::menuClosed() {
    m_menuOpen = false;
    track(m_platform.pointer().location());
}

void DockPanel::close() {
    m_window->close();
}

QRect DockPanel::frame() const {
    return m_window->frame();
}

bool DockPanel::isVisible() const {
    return m_window->isVisible();
}

QImage DockPanel::grab() {
    return m_window->grab();
}

QWindow* DockPanel::nativeWindow() const {
    return m_contents->windowHandle();
}

void DockPanel::followConfig() {
    const bool wanted = m_model->config().autoHide;
    if (wanted != m_autoHide) {
        m_autoHide = wanted;
        // A pending hide would leave the dock hidden for good, as nothing reveals it any more.
        m_hideWork.reset();
        m_model->setHidden(wanted);
    }
    repositionSoon();
}

void DockPanel::followHidden() {
    if (m_model->hidden()) {
        m_window->setIgnoresMouseEvents(true);
        m_model->setMouse(std::nullopt);
    }
    updateInputRegion();
}

void DockPanel::repositionSoon() {
    if (!m_repositionWork) {
        m_repositionWork = m_platform.scheduler().after(0, [this] {
            m_repositionWork.reset();
            reposition();
        });
    }
}

void DockPanel::updateInputRegion() {
    m_window->setInputRegion(m_model->hidden() ? QRegion() : QRegion(geometry().inputZone(pointer())));
}

DockGeometry::Pointer DockPanel::pointer() const {
    return m_model->mouse() ? DockGeometry::Pointer::onDock : DockGeometry::Pointer::offDock;
}

const DockGeometry& DockPanel::geometry() const {
    return m_model->row().geometry;
}

QPointF DockPanel::panelPoint(QPointF location) const {
    return location - frame().topLeft() - geometry().frameOrigin();
}

} // namespace quillary
