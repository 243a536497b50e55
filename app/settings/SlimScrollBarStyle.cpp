#include "app/settings/SlimScrollBarStyle.h"

#include "app/settings/FormColours.h"

#include <QPainter>
#include <QStyleOptionSlider>
#include <QWidget>

#include <algorithm>

namespace quillary {

namespace {

constexpr int inset = 2;
constexpr double shortestThumb = 32;

QRectF thumb(const QStyleOptionSlider& bar) {
    const int range = bar.maximum - bar.minimum;
    if (range <= 0) {
        return {};
    }
    const QRectF way = QRectF(bar.rect).adjusted(inset, inset, -inset, -inset);
    const double share = bar.pageStep / static_cast<double>(range + bar.pageStep);
    const double length =
        std::clamp(way.height() * share, std::min(shortestThumb, way.height()), way.height());
    const double done = (bar.sliderPosition - bar.minimum) / static_cast<double>(range);
    return {way.left(), way.top() + done * (way.height() - length), way.width(), length};
}

} // namespace

void SlimScrollBarStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    widget->setAttribute(Qt::WA_Hover);
    // The form shows around the thumb.
    widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
}

int SlimScrollBarStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                    const QWidget* widget) const {
    return metric == PM_ScrollBarExtent ? thickness : QProxyStyle::pixelMetric(metric, option, widget);
}

int SlimScrollBarStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                  QStyleHintReturn* result) const {
    // The toolkit lays transient bars over the contents.
    return hint == SH_ScrollBar_Transient ? 0 : QProxyStyle::styleHint(hint, option, widget, result);
}

QRect SlimScrollBarStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                         SubControl part, const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || bar == nullptr) {
        return QProxyStyle::subControlRect(control, option, part, widget);
    }
    // The bar is narrow: presses count across its whole width.
    const QRect whole = bar->rect;
    const QRectF drawn = thumb(*bar);
    const int top = qRound(drawn.top());
    const int bottom = qRound(drawn.bottom());
    switch (part) {
    case SC_ScrollBarGroove:
        return whole.adjusted(0, inset, 0, -inset);
    case SC_ScrollBarSlider:
        return {whole.left(), top, whole.width(), bottom - top};
    case SC_ScrollBarSubPage:
        return {whole.left(), whole.top(), whole.width(), top - whole.top()};
    case SC_ScrollBarAddPage:
        return {whole.left(), bottom, whole.width(), whole.bottom() + 1 - bottom};
    default:
        return {};
    }
}

void SlimScrollBarStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                            QPainter* painter, const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || bar == nullptr) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    const QRectF part = thumb(*bar);
    if (part.isEmpty()) {
        return;
    }
    const bool used = (bar->state & (State_MouseOver | State_Sunken)) != 0;
    QColor ink = FormColours::of(bar->palette).text;
    ink.setAlphaF(used ? 0.45F : 0.25F);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(ink);
    painter->drawRoundedRect(part, part.width() / 2, part.width() / 2);
    painter->restore();
}

} // namespace quillary
