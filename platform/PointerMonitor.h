#pragma once

#include <QObject>
#include <QPointF>

namespace quillary {

/// Tracks the pointer over the whole desktop, including other programs' windows and their drags.
class PointerMonitor : public QObject {
    Q_OBJECT

public:
    /// The pointer's present location, in global points.
    [[nodiscard]] virtual QPointF location() const = 0;
    /// Queries the pointer's location and emits `moved` if it differs from the last one emitted. For events
    /// that indicate a jump of the pointer without a movement.
    virtual void refresh() = 0;

Q_SIGNALS:
    /// The pointer moved. Emitted at most once per frame, never while the pointer rests. Global points.
    void moved(QPointF location);
};

} // namespace quillary
