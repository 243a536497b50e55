#include "app/view/drag/DragHover.h"

#include <QDropEvent>
#include <QMimeData>

#include <utility>

namespace quillary {

DragHover::DragHover(std::shared_ptr<DockModel> model, Platform& platform)
    : drops(std::move(model), platform) {}

void DragHover::enter(const QMimeData* data) {
    dragged = data != nullptr ? itemProviders(*data) : std::vector<ItemProvider>();
}

void DragHover::hover(QDropEvent& event, const DockScene& scene, QPointF point) {
    over = DockDrops::target(scene, point, dragged);
    if (over) {
        event.setDropAction(Qt::CopyAction);
        event.accept();
    } else if (event.type() == QEvent::DragEnter) {
        // A refusal here would be the last that is heard of the drag.
        event.accept();
    } else {
        event.ignore();
    }
}

void DragHover::leave() {
    dragged.clear();
    over.reset();
}

void DragHover::drop(QDropEvent& event, const DockScene& scene, QPointF point) {
    const auto target = DockDrops::target(scene, point, dragged);
    const auto items = std::exchange(dragged, {});
    over.reset();
    if (target) {
        event.setDropAction(Qt::CopyAction);
        event.accept();
        drops.drop(*target, items);
    }
}

} // namespace quillary
