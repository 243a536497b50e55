#pragma once

#include "app/view/Materials.h"
#include "core/DockEdge.h"
#include "core/DockStyle.h"
#include "core/Magnification.h"

#include <QImage>

#include <string>
#include <vector>

namespace quillary::test {

/// A dock as one picture shows it.
struct Exhibit {
    std::string name;
    DockStyle style = DockStyle::glass;
    DockEdge edge = DockEdge::bottom;
    double scale = 1;
    Shade shade = Shade::light;
    Blending blending = Blending::translucent;
    /// The pointer on an icon; files over the background, an icon pressed and another one targeted; halfway
    /// to being hidden; without items.
    enum class Mood { resting, magnified, dragged, hiding, empty } mood = Mood::resting;
    double iconSize = 48;
    Magnification magnification = Magnification::big;
};

/// Every style, at each edge, and each scale, shade, blending and mood at the bottom; empty docks at each
/// edge, of several styles, sizes and magnifications.
[[nodiscard]] std::vector<Exhibit> exhibits();

/// What can be left out of a picture, to see that a comparison finds it.
enum class Omission { nothing, backgroundShadow, iconShadow, dot, corner, border, pill };

/// The dock on a wallpaper that has dark, light and busy parts, at device pixels. The icons are drawn here;
/// the font is DejaVu Sans.
[[nodiscard]] QImage picture(const Exhibit& exhibit, Omission omission = Omission::nothing);

/// How different two pictures look: the largest difference of the mean colour of any of their squares of
/// 4 × 4 pixels, 0…255. 255 when their sizes differ.
[[nodiscard]] double difference(const QImage& one, const QImage& other);

} // namespace quillary::test
