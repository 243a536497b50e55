#include "platform/linux/colours/SchemePalette.h"

#include "platform/Shade.h"

#include <QGuiApplication>

namespace quillary {

namespace {

using Scheme = PortalColorScheme::Scheme;

struct Tones {
    QColor window, base, alternate, button, text, dim, toolTip;
};

QPalette paletteOf(const Tones& tones, const QColor& accent) {
    QPalette palette(tones.button, tones.window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
                            QPalette::BrightText}) {
        palette.setColor(role, tones.text);
        palette.setColor(QPalette::Disabled, role, tones.dim);
    }
    palette.setColor(QPalette::Base, tones.base);
    palette.setColor(QPalette::AlternateBase, tones.alternate);
    palette.setColor(QPalette::ToolTipBase, tones.toolTip);
    palette.setColor(QPalette::PlaceholderText, tones.dim);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, tones.dim);
    return palette;
}

} // namespace

SchemePalette::SchemePalette() : m_theme(QGuiApplication::palette()) {
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_portal.emplace();
            connect(&*m_portal, &PortalColorScheme::changed, this, &SchemePalette::apply);
        },
        Qt::QueuedConnection);
}

QPalette SchemePalette::paletteFor(Scheme scheme, const QPalette& theme) {
    const bool isThemeDark = shadeOf(theme.color(QPalette::Window)) == Shade::dark;
    if (scheme == Scheme::unspecified || isThemeDark == (scheme == Scheme::dark)) {
        return theme;
    }
    const QColor accent = theme.color(QPalette::Highlight);
    return scheme == Scheme::dark
               ? paletteOf({"#2b2b2e", "#1f1f22", "#262629", "#3a3a3e", "#f2f2f4", "#8a8a90", "#3a3a3e"},
                           accent)
               : paletteOf({"#f2f2f4", "#ffffff", "#f7f7f9", "#e6e6ea", "#1b1b1f", "#9a9aa0", "#ffffff"},
                           accent);
}

void SchemePalette::apply() {
    QGuiApplication::setPalette(paletteFor(m_portal->scheme(), m_theme));
}

} // namespace quillary
