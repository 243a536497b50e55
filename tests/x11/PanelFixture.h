#pragma once

#include "platform/x11/X11PanelWindow.h"
#include "tests/x11/X11Fixture.h"

#include <QWidget>

#include <functional>

namespace quillary::test {

/// What a dock would show: one colour all over, which may be translucent.
class ColourWidget : public QWidget {
public:
    QColor colour = Qt::red;
    int presses = 0;
    int movements = 0;
    /// Called with the place of a press of the right button, on the widget.
    std::function<void(QPoint)> rightPressed;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
};

/// One panel on a display with two monitors.
class PanelFixture : public X11Fixture {
protected:
    void startPanel();
    void TearDown() override;

    /// Shows the panel there and waits until it is seen.
    void present(const QRect& frame);
    [[nodiscard]] xcb_window_t id() const;
    /// The panel's place on the X server's root window.
    [[nodiscard]] QRect place() const { return display.geometry(id()); }
    /// The rectangles of one of the window's shapes, as the server holds them.
    [[nodiscard]] QRegion shape(xcb_shape_kind_t kind) const;

    std::unique_ptr<ColourWidget> widget;
    std::unique_ptr<X11PanelWindow> panel;
};

} // namespace quillary::test
