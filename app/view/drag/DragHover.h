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

/// A drag over a dock, from entering to its drop or leaving: the items it carries and the target it is over.
class DragHover {
public:
    /// The platform must outlive the object.
    DragHover(std::shared_ptr<DockModel> model, Platform& platform);

    /// The target that would accept the drag now, if there is one.
    [[nodiscard]] const std::optional<DockDrops::Target>& target() const { return m_target; }

    /// Begins a drag that carries this data.
    void enter(const QMimeData* data);
    /// Handles a drag at a point of the scene (panel coordinates): accepts or ignores the event.
    void hover(QDropEvent& event, const DockScene& scene, QPointF point);
    /// Forgets the target; the drag may still be over the dock.
    void clearTarget() { m_target.reset(); }
    /// Ends the drag without a drop.
    void leave();
    /// Handles a drop at a point of the scene: carries it out and accepts the event if there is a target.
    void drop(QDropEvent& event, const DockScene& scene, QPointF point);

private:
    DockDrops m_drops;
    std::vector<ItemProvider> m_dragged;
    std::optional<DockDrops::Target> m_target;
};

} // namespace quillary
