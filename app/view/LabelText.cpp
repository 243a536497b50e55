#include "app/view/LabelText.h"

#include <QFontMetricsF>
#include <QPainter>

namespace quillary {

const QImage& LabelText::image(const Look& look) {
    if (m_look == look) {
        return m_picture;
    }
    m_look = look;
    m_picture = QImage(look.room, QImage::Format_ARGB32_Premultiplied);
    m_picture.setDevicePixelRatio(look.ratio);
    m_picture.fill(Qt::transparent);
    QPainter painter(&m_picture);
    painter.setPen(look.ink);
    painter.setFont(look.font);
    const QRectF room(QPointF(), QSizeF(look.room) / look.ratio);
    // The padding at both sides leaves room for letters that reach beyond their width. A name is cut in its
    // middle: its end may hold a memory figure or the part that differs.
    const QString text =
        look.cut ? QFontMetricsF(look.font).elidedText(look.text, Qt::ElideMiddle, room.width() - 4)
                 : look.text;
    painter.drawText(room, Qt::AlignCenter, text);
    painter.end();
    m_picture.setDevicePixelRatio(1);
    return m_picture;
}

} // namespace quillary
