#pragma once

#include "app/view/Animation.h"
#include "app/view/DockScene.h"

#include <map>
#include <string>

namespace quillary {

/// Moves a dock's parts from where they were seen to where a changed configuration or list of cells puts
/// them, each on a spring of its own: a cell is known by its path, whatever its place. What is new fades in.
///
/// Only the difference to the dock's own scene moves, so that magnification goes on at once under it. Times
/// are seconds.
class SceneMotion {
public:
    /// Sets out from what is seen for the scene that is to be seen. At another edge the dock is there at
    /// once.
    void retarget(const DockScene& seen, const DockScene& wanted, double now);
    /// Moves the parts of a scene to where they are at `now`.
    void apply(DockScene& scene, double now) const;
    /// Lets everything be in its place.
    void clear();
    [[nodiscard]] bool settled(double now) const;

private:
    /// How far a part is from its place.
    struct Part {
        Part();
        Spring along;
        Spring size;
        /// 0 when it is fully there, -1 when it isn't seen yet.
        Spring presence;
        [[nodiscard]] bool settled(double now) const;
    };
    void retargetIcons(const DockScene& seen, const DockScene& wanted, double now);

    std::map<std::string, Part, std::less<>> m_icons;
    Part m_separator;
    /// `along` is its length, `size` its depth.
    Part m_background;
};

} // namespace quillary
