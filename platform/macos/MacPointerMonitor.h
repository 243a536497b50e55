#pragma once

#include "platform/PointerMonitor.h"
#include "platform/macos/MovementPace.h"

#include <QElapsedTimer>
#include <QTimer>

#include <memory>

namespace quillary {

/// Tracks the pointer by two of AppKit's event monitors: a global one for events that other programs receive,
/// a local one for this program's events.
class MacPointerMonitor final : public PointerMonitor {
    Q_OBJECT

public:
    MacPointerMonitor();
    ~MacPointerMonitor() override;

    [[nodiscard]] QPointF location() const override;
    void refresh() override;

private:
    void follow();
    void report();

    struct Native;
    std::unique_ptr<Native> m_native;
    MovementPace m_pace;
    QElapsedTimer m_clock;
    QTimer m_pending;
};

} // namespace quillary
