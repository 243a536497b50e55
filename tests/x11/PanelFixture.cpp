#include "tests/x11/PanelFixture.h"

#include <QMouseEvent>
#include <QPainter>

#include <xcb/shape.h>

#include <cstdlib>

namespace quillary::test {

void ColourWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(rect(), colour);
}

void ColourWidget::mousePressEvent(QMouseEvent* event) {
    ++presses;
    if (event->button() == Qt::RightButton && rightPressed) {
        rightPressed(event->position().toPoint());
    }
}

void ColourWidget::mouseMoveEvent(QMouseEvent* /*event*/) {
    ++movements;
}

void PanelFixture::startPanel() {
    startApplication();
    widget = std::make_unique<ColourWidget>();
    panel = std::make_unique<X11PanelWindow>(*widget, *connection, *compositor, *screens);
}

void PanelFixture::TearDown() {
    panel.reset();
    widget.reset();
    X11Fixture::TearDown();
}

void PanelFixture::present(const QRect& frame) {
    panel->setFrame(frame);
    panel->orderFront();
    ASSERT_TRUE(eventually([this] { return display.isViewable(id()); }));
}

xcb_window_t PanelFixture::id() const {
    return static_cast<xcb_window_t>(widget->internalWinId());
}

QRegion PanelFixture::shape(xcb_shape_kind_t kind) const {
    auto* reply = xcb_shape_get_rectangles_reply(
        display.xcb(), xcb_shape_get_rectangles(display.xcb(), id(), kind), nullptr);
    if (reply == nullptr) {
        return {};
    }
    QRegion region;
    const auto* rectangles = xcb_shape_get_rectangles_rectangles(reply);
    for (int i = 0; i < xcb_shape_get_rectangles_rectangles_length(reply); ++i) {
        region += QRect(rectangles[i].x, rectangles[i].y, rectangles[i].width, rectangles[i].height);
    }
    std::free(reply);
    return region;
}

} // namespace quillary::test
