#pragma once

#include <QObject>
#include <QPointF>

namespace quillary {

/// Follows the pointer over the whole desktop, over other programs' windows and during their drags too.
class PointerMonitor : public QObject {
    Q_OBJECT

public:
    /// Where the pointer is now, in global points.
    [[nodiscard]] virtual QPointF location() const = 0;
    /// Asks the system for the pointer's place and tells of it when it differs from the last one told: for
    /// events that show a jump of the pointer without a movement.
    virtual void refresh() = 0;

Q_SIGNALS:
    /// The pointer moved, told at most once a frame, never while nothing moves. Global points.
    void moved(QPointF location);
};

} // namespace quillary
