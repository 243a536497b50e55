#pragma once

#include <QWidget>

#include <optional>

namespace quillary {

/// A slider that shows any value but chooses only multiples of a step. It does not own the value: the owner
/// calls `setValue`. It ignores the wheel, which scrolls the form.
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
    /// Shows the value; the knob of a value out of range stands at the end.
    void setValue(double value);
    /// Emits `chosen` for the multiple of the step nearest to the value, as dragging to it does.
    void choose(double value);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user chose this value, which differs from the shown one.
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
    /// While the knob is dragged: from the pointer to its middle, points.
    std::optional<double> m_grip;
};

} // namespace quillary
