#pragma once

#include "app/ItemId.h"

#include <optional>

namespace quillary {

/// What moves on a dock at one moment: the pointer, a drag, a press, and the clock of the hops.
struct DockSceneState {
    /// Along-coordinate of the pointer that magnifies: the present one, or the last while icons shrink back.
    std::optional<double> mouseAxis{};
    /// How far magnification has come in, 0…1.
    double magnified = 0;
    /// 0 while shown, 1 while hidden; springs overshoot.
    double hidden = 0;
    /// Whether dragged files hover over the background.
    bool dropTargeted = false;
    /// The item that would take what is dragged over it.
    std::optional<ItemId> targetedItem{};
    /// The item that is pressed or springs back, and how far it is pressed, 0…1.
    ItemId pressedItem{};
    double pressed = 0;
    /// Seconds of the clock by which launching icons hop.
    double time = 0;

    bool operator==(const DockSceneState&) const = default;
};

} // namespace quillary
