#pragma once

#include "app/view/drag/DockDrops.h"
#include "app/view/drag/FileDrop.h"

#include <QPointF>

#include <memory>
#include <optional>
#include <vector>

class QDropEvent;
class QMimeData;

namespace quillary {

/// A drag over a dock, from its coming to its drop or its leaving: what it carries and what it is over.
class DragHover {
public:
    /// The platform must outlive this.
    DragHover(std::shared_ptr<DockModel> model, Platform& platform);

    /// What would take the drag now; absent when nothing would, or none is over the dock.
    [[nodiscard]] const std::optional<DockDrops::Target>& target() const { return m_target; }

    /// The drag comes.
    void enter(const QMimeData* data);
    /// The drag is at a point of the scene (panel coordinates): answers the event.
    void hover(QDropEvent& event, const DockScene& scene, QPointF point);
    /// Nothing is under the drag, as far as can be known; it may still be over the dock.
    void clearTarget() { m_target.reset(); }
    /// The drag has gone.
    void leave();
    /// The drag is dropped at a point of the scene: does what that means, and answers the event.
    void drop(QDropEvent& event, const DockScene& scene, QPointF point);

private:
    DockDrops m_drops;
    std::vector<ItemProvider> m_dragged;
    std::optional<DockDrops::Target> m_target;
};

} // namespace quillary
