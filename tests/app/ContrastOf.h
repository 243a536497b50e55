#pragma once

#include "platform/Shade.h"

#include <QColor>
#include <QImage>
#include <QPalette>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace quillary::test {

/// The relative luminance of a colour as WCAG 2.1 defines it, 0…1.
inline double relativeLuminance(const QColor& colour) {
    const auto linear = [](float share) {
        const auto part = static_cast<double>(share);
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// The contrast ratio of two opaque colours as WCAG 2.1 defines it, 1…21.
inline double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({relativeLuminance(one), relativeLuminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// The colours of a light or a dark desktop.
inline QPalette desktopColours(Shade shade) {
    const bool dark = shade == Shade::dark;
    QPalette palette(dark ? QColor(32, 32, 36) : QColor(240, 240, 243));
    palette.setColor(QPalette::WindowText, dark ? QColor(236, 236, 240) : QColor(28, 28, 32));
    palette.setColor(QPalette::Highlight, QColor(0, 122, 255));
    return palette;
}

inline QImage pictureOf(QWidget& widget, double ratio = 1) {
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(widget.palette().color(QPalette::Window));
    widget.render(&image);
    return image;
}

} // namespace quillary::test
