#pragma once

#include "app/view/DockSceneBuilder.h"

namespace quillary::test {

/// Texts whose sizes are known: labels say their path, 7 points a letter; a letter of a pill is 0.6 of its
/// font wide and its line 1.2 of it high.
[[nodiscard]] inline DockTexts plainTexts() {
    return {.label = [](const std::string& path) { return QString::fromStdString(path); },
            .labelWidth = [](const QString& text) { return 7.0 * static_cast<double>(text.size()); },
            .pillSize =
                [](const QString& text, double size) {
                    return QSizeF(0.6 * size * static_cast<double>(text.size()), 1.2 * size);
                }};
}

} // namespace quillary::test
