#pragma once

#include "app/view/DockContents.h"
#include "app/view/DockScene.h"
#include "app/view/DockSceneState.h"

#include <QSizeF>
#include <QString>

#include <functional>
#include <string>

namespace quillary {

/// The texts of a scene and the room they take in the desktop's fonts. Both are expensive: each is asked for
/// only where the scene shows it.
struct DockTexts {
    /// What the label of a path says.
    std::function<QString(const std::string& path)> label;
    /// The width of a text in the label's font, points.
    std::function<double(const QString& text)> labelWidth;
    /// The size of a text in the memory pill's font of that pixel size, points.
    std::function<QSizeF(const QString& text, double fontSize)> pillSize;
};

/// The scene of a dock with these contents at one moment. `texts` is used for what the pointer is on and for
/// the application that uses the most memory only.
[[nodiscard]] DockScene buildDockScene(const DockContents& contents, const DockSceneState& state,
                                       const DockTexts& texts);

} // namespace quillary
