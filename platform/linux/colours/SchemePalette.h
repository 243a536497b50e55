#pragma once

#include "platform/linux/colours/PortalColorScheme.h"

#include <QPalette>

#include <optional>

namespace quillary {

/// Gives the application's palette the shade that the desktop's portal tells of. A theme that is of that
/// shade already keeps its own palette, as it does where the user has no preference.
class SchemePalette final : public QObject {
    Q_OBJECT

public:
    SchemePalette();

    /// The palette for a scheme on a desktop whose theme gives the other one.
    [[nodiscard]] static QPalette paletteFor(PortalColorScheme::Scheme scheme, const QPalette& theme);

private:
    void apply();

    // Made by the event loop: a program that ends before it runs has no need of it.
    std::optional<PortalColorScheme> m_portal;
    const QPalette m_theme;
};

} // namespace quillary
