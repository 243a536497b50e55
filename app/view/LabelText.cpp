#include "app/view/LabelText.h"

#include <QFontMetricsF>
#include <QPainter>

namespace quillary {

const QImage& LabelText::image(const Look& look) {
    if (rendered == look) {
        return picture;
    }
    rendered = look;
    picture = QImage(look.room, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(look.ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setPen(look.ink);
    painter.setFont(look.font);
    const QRectF room(QPointF(), QSizeF(look.room) / look.ratio);
    // The padding at both sides is room for what letters reach beyond their width.
    const QString text =
        look.cut ? QFontMetricsF(look.font).elidedText(look.text, Qt::ElideRight, room.width() - 4)
                 : look.text;
    painter.drawText(room, Qt::AlignCenter, text);
    painter.end();
    picture.setDevicePixelRatio(1);
    return picture;
}

} // namespace quillary
