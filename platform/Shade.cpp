#include "platform/Shade.h"

#include <QColor>

namespace quillary {

Shade shadeOf(const QColor& surface) {
    constexpr float middle = 0.5F;
    return surface.lightnessF() < middle ? Shade::dark : Shade::light;
}

} // namespace quillary
