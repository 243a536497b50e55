#pragma once

#include <QScrollBar>

namespace quillary {

/// A narrow scroll bar without arrows, of which only the thumb is seen, and nothing when there is nothing to
/// scroll.
class SlimScrollBar : public QScrollBar {
    Q_OBJECT

public:
    /// Points.
    static constexpr int thickness = 10;

    explicit SlimScrollBar(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] QRectF thumb() const;

    /// While the thumb is held: how far below its top.
    double grip = 0;
};

} // namespace quillary
