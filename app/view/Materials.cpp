#include "app/view/Materials.h"

namespace quillary {

namespace {

double density(Material material, Blending blending) {
    const bool thin = material == Material::ultraThin;
    switch (blending) {
    case Blending::blurred:
        return thin ? 0.42 : 0.62;
    case Blending::translucent:
        return thin ? 0.58 : 0.78;
    case Blending::opaque:
        break;
    }
    return 1;
}

} // namespace

QColor tint(Material material, Shade shade, Blending blending) {
    if (material == Material::none) {
        return Qt::transparent;
    }
    QColor color = shade == Shade::dark ? QColor(36, 36, 40) : QColor(246, 247, 250);
    color.setAlphaF(static_cast<float>(density(material, blending)));
    return color;
}

} // namespace quillary
