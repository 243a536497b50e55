#pragma once

#include "app/ItemId.h"
#include "app/view/Animation.h"
#include "app/view/DockScene.h"

#include <map>

namespace quillary {

/// Animates a dock's parts from where they were shown to where a changed configuration or list of cells puts
/// them. Each part has a spring. New parts fade in.
///
/// Only the difference to the dock's scene is animated, so that magnification follows the pointer meanwhile.
/// Times are seconds.
class SceneMotion {
public:
    /// Starts from the scene that is shown towards the wanted one. At another edge the wanted scene is shown
    /// at once.
    void retarget(const DockScene& seen, const DockScene& wanted, double now);
    /// Moves the parts of a scene to their places at `now`.
    void apply(DockScene& scene, double now) const;
    /// Ends all movements: every part is in its place.
    void clear();
    [[nodiscard]] bool settled(double now) const;

private:
    /// The offset of a part from its place.
    struct Part {
        Part();
        Spring along;
        Spring size;
        /// 0 for a part that is fully shown, -1 for one that is not shown yet.
        Spring presence;
        [[nodiscard]] bool settled(double now) const;
    };
    void retargetIcons(const DockScene& seen, const DockScene& wanted, double now);

    std::map<ItemId, Part> m_icons;
    Part m_separator;
    /// `along` is its length, `size` its depth.
    Part m_background;
};

} // namespace quillary
