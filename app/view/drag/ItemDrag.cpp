#include "app/view/drag/ItemDrag.h"

#include "app/view/drag/FileDrop.h"

#include <QCoreApplication>
#include <QDrag>
#include <QMimeData>
#include <QPixmap>

namespace quillary {

void dragItem(const std::string& path, const QImage& picture) {
    // Not owned by the view, which may be destroyed during the drag.
    auto* drag = new QDrag(QCoreApplication::instance());
    auto* data = new QMimeData;
    data->setText(QString::fromStdString(std::string(itemPrefix) + path));
    drag->setMimeData(data);
    drag->setPixmap(QPixmap::fromImage(picture));
    drag->setHotSpot(QRectF({}, picture.deviceIndependentSize()).center().toPoint());
    drag->exec(Qt::CopyAction);
}

} // namespace quillary
