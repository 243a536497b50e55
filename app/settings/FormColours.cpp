#include "app/settings/FormColours.h"

#include "platform/Shade.h"

#include <QPalette>

namespace quillary {

namespace {

QColor sheer(QColor colour, float opacity) {
    colour.setAlphaF(opacity);
    return colour;
}

} // namespace

FormColours FormColours::of(const QPalette& palette) {
    // Of the active window always: which colours a window without the focus has differs from desktop to
    // desktop, and a switch must not look off because another window is in front.
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const bool dark = shadeOf(window) == Shade::dark;
    const QColor group = mixed(window, Qt::white, dark ? 0.065F : 0.72F);
    const QColor track = mixed(group, text, dark ? 0.15F : 0.1F);
    return {.group = group,
            .groupBorder = sheer(text, dark ? 0.09F : 0.08F),
            .separator = sheer(text, dark ? 0.1F : 0.085F),
            .text = text,
            .secondaryText = mixed(group, text, 0.66F),
            .accent = palette.color(QPalette::Active, QPalette::Highlight),
            .track = track,
            .trackText = mixed(track, text, dark ? 0.75F : 0.68F),
            .switchOff = mixed(group, text, dark ? 0.42F : 0.49F),
            .trackBorder = sheer(text, dark ? 0.06F : 0.07F),
            .knob = dark ? QColor(236, 236, 240) : QColor(Qt::white),
            .knobBorder = sheer(Qt::black, dark ? 0.25F : 0.12F),
            .knobShadow = sheer(Qt::black, dark ? 0.4F : 0.22F),
            .raised = dark ? mixed(group, Qt::white, 0.31F) : QColor(Qt::white),
            .button = dark ? mixed(group, Qt::white, 0.17F) : QColor(Qt::white),
            .pressed = sheer(text, 0.1F)};
}

QColor mixed(const QColor& from, const QColor& to, float share) {
    const auto part = [share](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                            part(from.blueF(), to.blueF()));
}

} // namespace quillary
