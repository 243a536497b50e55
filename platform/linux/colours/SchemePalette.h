#pragma once

#include "platform/linux/colours/PortalColorScheme.h"

#include <QPalette>

#include <optional>

namespace quillary {

/// Makes the application's palette dark or light as the user prefers by the desktop's portal. The theme's
/// palette stays when it has that shade already, or when there is no preference.
class SchemePalette final : public QObject {
    Q_OBJECT

public:
    SchemePalette();

    /// The palette to use for the scheme on a desktop whose theme has the palette `theme`.
    [[nodiscard]] static QPalette paletteFor(PortalColorScheme::Scheme scheme, const QPalette& theme);

private:
    void apply();

    // Created by the event loop, so that a program that ends before it runs makes no connection.
    std::optional<PortalColorScheme> m_portal;
    const QPalette m_theme;
};

} // namespace quillary
