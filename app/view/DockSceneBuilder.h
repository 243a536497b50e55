#pragma once

#include "app/view/DockScene.h"

#include <functional>
#include <optional>
#include <string>

namespace quillary {

class DockModel;

/// What the view adds to the model's state: what moves, and what costs too much to ask at every movement.
struct DockSceneState {
    /// Along-coordinate of the pointer that magnifies: the present one, or the last while icons shrink back.
    std::optional<double> mouseAxis{};
    /// How far magnification has come in, 0…1.
    double magnified = 0;
    /// 0 while shown, 1 while hidden; springs overshoot.
    double hidden = 0;
    /// Whether dragged files hover over the background.
    bool dropTargeted = false;
    /// The item over which something hovers that can be dropped on it.
    std::optional<std::string> targetedPath{};
    /// How far an item is pressed, 0…1.
    std::function<double(const std::string&)> pressed = [](const std::string&) { return 0.0; };
    /// Seconds of the clock that launching icons hop by.
    double time = 0;
    /// What the label of a path says.
    std::function<QString(const std::string&)> labelText;
    /// The width of a text in the label's font, points.
    std::function<double(const QString&)> textWidth;
    /// The size of a text in the pill's font of that pixel size, points.
    std::function<QSizeF(const QString&, double)> pillTextSize;
    /// Whether something stands at the path.
    std::function<bool(const std::string&)> exists;
};

/// Turns a dock's state into its scene.
[[nodiscard]] DockScene buildDockScene(const DockModel& model, const DockSceneState& state);

} // namespace quillary
