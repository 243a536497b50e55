#pragma once

#include "app/view/DockScene.h"

#include <QRegion>

namespace quillary {

/// The whole points of the panel that a scene covers with translucent materials, behind which the desktop
/// should blur. Empty while the dock is out of sight.
[[nodiscard]] QRegion blurRegion(const DockScene& scene);

} // namespace quillary
