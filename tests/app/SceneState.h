#pragma once

#include "app/view/DockSceneBuilder.h"

namespace quillary::test {

/// The state of a dock at rest, with texts whose sizes are known: labels say their path, 7 points a letter; a
/// letter of a pill is 0.6 of its font wide and its line 1.2 of it high. Everything exists.
[[nodiscard]] inline DockSceneState plainSceneState() {
    return {.labelText = [](const std::string& path) { return QString::fromStdString(path); },
            .textWidth = [](const QString& text) { return 7.0 * static_cast<double>(text.size()); },
            .pillTextSize =
                [](const QString& text, double size) {
                    return QSizeF(0.6 * size * static_cast<double>(text.size()), 1.2 * size);
                },
            .exists = [](const std::string&) { return true; }};
}

} // namespace quillary::test
