#pragma once

#include <QProxyStyle>

namespace quillary {

/// Draws a vertical scroll bar as a narrow thumb alone: without arrows, and nothing when there is nothing to
/// scroll. Everything else is the desktop's style.
class SlimScrollBarStyle : public QProxyStyle {
    Q_OBJECT

public:
    /// The width of the bar, points.
    static constexpr int thickness = 10;

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* result) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                       SubControl part, const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

} // namespace quillary
