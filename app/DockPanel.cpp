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

bool containsOrTouches(const QRect& frame, QPointF point, double margin = 0) {
    const QRectF area(frame);
    return point.x() >= area.left() - margin && point.x() <= area.right() + margin &&
           point.y() >= area.top() - margin && point.y() <= area.bottom() + margin;
}

// Both axes grow away from the side that an oversized panel keeps.
double placedInside(double origin, double length, double from, double to) {
    return std::min(std::max(origin, from), std::max(to - length, from));
}

int rounded(double value) {
    return static_cast<int>(std::lround(value));
}

} // namespace

DockPanel::DockPanel(std::shared_ptr<DockModel> model, ScreenInfo target, std::shared_ptr<IconCache> icons,
                     Platform& system, std::function<void()> openSettings)
    : dock(std::move(model)),
      screen(std::move(target)),
      platform(system),
      showSettings(std::move(openSettings)),
      autoHide(dock->config().autoHide),
      view(std::make_unique<DockView>(dock, std::move(icons), platform)),
      window(platform.makePanelWindow(*view)) {
    view->attach(*window);
    window->setIgnoresMouseEvents(true);
    window->setInputRegion({});
    connect(view.get(), &DockView::menuRequested, this, &DockPanel::openMenu);
    connect(dock.get(), &DockModel::configChanged, this, &DockPanel::followConfig);
    connect(dock.get(), &DockModel::hiddenChanged, this, &DockPanel::followHidden);
    connect(dock->running.get(), &RunningApps::appsChanged, this, &DockPanel::repositionSoon);
    connect(window.get(), &PanelWindow::pointerCrossed, &platform.pointer(), &PointerMonitor::refresh);
}

DockPanel::~DockPanel() = default;

QRect DockPanel::placement(const QRectF& visible, DockEdge edge, QSize size) {
    const double width = size.width();
    const double height = size.height();
    // The rules count y upwards from the bottom of the frame, so that an oversized panel keeps its bottom
    // end.
    const double bottom = 0;
    const double top = visible.height();
    double x = visible.center().x() - width / 2;
    double y = (top - height) / 2;
    switch (edge) {
    case DockEdge::bottom:
        y = bottom;
        break;
    case DockEdge::top:
        y = top - height;
        break;
    case DockEdge::left:
        x = visible.left();
        break;
    case DockEdge::right:
        x = visible.right() - width;
        break;
    }
    x = placedInside(x, width, visible.left(), visible.right());
    y = placedInside(y, height, bottom, top);
    return {QPoint(rounded(x), rounded(visible.bottom() - y - height)), size};
}

void DockPanel::setTargetScreen(ScreenInfo target) {
    screen = std::move(target);
}

void DockPanel::present() {
    dock->setHidden(true);
    view->settle();
    reposition();
    window->orderFront();
    showWork = platform.scheduler().after(showDelay, [this] {
        if (!dock->config().autoHide) {
            dock->setHidden(false);
        }
    });
}

void DockPanel::reposition() {
    const QRectF& visible = screen.visibleFrame;
    const DockEdge edge = dock->config().edge;
    const double length = isHorizontal(edge) ? visible.width() : visible.height();
    if (length != dock->maxLength()) {
        dock->setMaxLength(length);
    }
    const QRect before = placed;
    placed = placement(visible, edge, geometry().frameSize());
    window->setFrame(placed);
    updateInputRegion();
    // The dock moved under a pointer that stands still: what it is on now is another place of the dock.
    if (placed != before && dock->mouse()) {
        track(platform.pointer().location());
    }
}

void DockPanel::movePointer(QPointF location) {
    track(location);
    view->movePointer(location);
}

void DockPanel::track(QPointF location) {
    if (menuOpen) {
        return;
    }
    if (dock->hidden()) {
        trackHidden(location);
    } else {
        trackShown(location);
    }
}

void DockPanel::trackShown(QPointF location) {
    const bool wasInside = dock->mouse().has_value();
    std::optional<QPointF> mouse;
    if (!isCovered && containsOrTouches(placed, location)) {
        const DockGeometry& layout = geometry();
        const QPointF point = panelPoint(location, layout);
        if (layout.isInZone(point, pointer())) {
            mouse = point;
        }
    }
    const bool inside = mouse.has_value();
    window->setIgnoresMouseEvents(!inside);
    dock->setMouse(mouse);
    if (inside != wasInside) {
        updateInputRegion();
    }
    if (!dock->config().autoHide) {
        return;
    }
    if (inside) {
        hideWork.reset();
    } else if (!hideWork) {
        scheduleHide();
    }
}

void DockPanel::trackHidden(QPointF location) {
    window->setIgnoresMouseEvents(true);
    dock->setMouse(std::nullopt);
    if (isCovered || !dock->config().autoHide ||
        !containsOrTouches(placed, location, DockLayout::zoneBeyondEdge)) {
        return;
    }
    const DockGeometry& layout = geometry();
    if (layout.isInRevealStrip(panelPoint(location, layout))) {
        hideWork.reset();
        dock->setHidden(false);
    }
}

void DockPanel::scheduleHide() {
    hideWork = platform.scheduler().after(hideDelay, [this] {
        hideWork.reset();
        dock->setHidden(true);
    });
}

void DockPanel::setCovered(bool covered) {
    if (covered != isCovered) {
        isCovered = covered;
        track(platform.pointer().location());
    }
}

Menu DockPanel::buildMenu() {
    return dockMenu(dock, platform, showSettings);
}

void DockPanel::openMenu(QPointF position) {
    // The press says better than the last movement told where the pointer is.
    track(position + placed.topLeft());
    menuOpen = true;
    window->popUpMenu(buildMenu(), position.toPoint(), [this] { menuClosed(); });
}

void DockPanel::menuClosed() {
    menuOpen = false;
    track(platform.pointer().location());
}

void DockPanel::close() {
    window->close();
}

bool DockPanel::isVisible() const {
    return window->isVisible();
}

QImage DockPanel::grab() {
    return window->grab();
}

QWindow* DockPanel::nativeWindow() const {
    return view->windowHandle();
}

void DockPanel::followConfig() {
    const bool wanted = dock->config().autoHide;
    if (wanted != autoHide) {
        autoHide = wanted;
        // A hide that waits for its moment would strand the dock hidden once nothing reveals it any more.
        hideWork.reset();
        dock->setHidden(wanted);
    }
    repositionSoon();
}

void DockPanel::followHidden() {
    if (dock->hidden()) {
        window->setIgnoresMouseEvents(true);
        dock->setMouse(std::nullopt);
    }
    updateInputRegion();
}

void DockPanel::repositionSoon() {
    if (!repositionWork) {
        repositionWork = platform.scheduler().after(0, [this] {
            repositionWork.reset();
            reposition();
        });
    }
}

void DockPanel::updateInputRegion() {
    window->setInputRegion(dock->hidden() ? QRegion() : QRegion(geometry().inputZone(pointer())));
}

DockGeometry::Pointer DockPanel::pointer() const {
    return dock->mouse() ? DockGeometry::Pointer::onDock : DockGeometry::Pointer::offDock;
}

const DockGeometry& DockPanel::geometry() const {
    return dock->row().geometry;
}

QPointF DockPanel::panelPoint(QPointF location, const DockGeometry& layout) const {
    return location - placed.topLeft() - layout.frameOrigin();
}

} // namespace quillary
