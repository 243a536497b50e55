#pragma once

#include <QWidget>

#include <optional>

namespace quillary {

/// A slider over the multiples of a step. It shows any value, and asks for multiples of the step only; the
/// value is its owner's, who calls `setValue`. The wheel is not for it: it scrolls the form.
class StepSlider : public QWidget {
    Q_OBJECT

public:
    /// `least` and `most` are multiples of `step`. Points.
    struct Scale {
        int least, most, step;
    };
    StepSlider(const QString& name, Scale scale, QWidget* parent = nullptr);

    [[nodiscard]] Scale scale() const { return m_scale; }
    [[nodiscard]] double value() const { return m_value; }
    /// Shows the value; one beyond the ends is shown at the end.
    void setValue(double value);
    /// Asks for the multiple of the step next to the value, as the user would.
    void choose(double value);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user asks for this value, which is not the one that is shown.
    void chosen(int value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QRectF track() const;
    /// The middle of the knob for a value, and the value for a place of it.
    [[nodiscard]] double placeOf(double value) const;
    [[nodiscard]] double valueAt(double x) const;
    [[nodiscard]] QRectF knob() const;
    void ask(double value);

    Scale m_scale;
    double m_value;
    /// While the knob is held: where, as the distance of its middle from the pointer.
    std::optional<double> m_grip;
};

} // namespace quillary
