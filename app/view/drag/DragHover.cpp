#include "app/view/drag/DragHover.h"

#include <QDropEvent>
#include <QMimeData>

#include <utility>

namespace quillary {

DragHover::DragHover(std::shared_ptr<DockModel> model, Platform& platform)
    : m_drops(std::move(model), platform) {}

void DragHover::enter(const QMimeData* data) {
    m_dragged = data != nullptr ? itemProviders(*data) : std::vector<ItemProvider>();
}

void DragHover::hover(QDropEvent& event, const DockScene& scene, QPointF point) {
    m_target = DockDrops::target(scene, point, m_dragged);
    if (m_target) {
        event.setDropAction(Qt::CopyAction);
        event.accept();
    } else if (event.type() == QEvent::DragEnter) {
        // After a refused enter event the toolkit would not send the movements of the drag.
        event.accept();
    } else {
        event.ignore();
    }
}

void DragHover::leave() {
    m_dragged.clear();
    m_target.reset();
}

void DragHover::drop(QDropEvent& event, const DockScene& scene, QPointF point) {
    const auto target = DockDrops::target(scene, point, m_dragged);
    const auto items = std::exchange(m_dragged, {});
    m_target.reset();
    if (target) {
        event.setDropAction(Qt::CopyAction);
        event.accept();
        m_drops.drop(*target, items);
    }
}

} // namespace quillary
