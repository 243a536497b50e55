#pragma once

#include "platform/PointerMonitor.h"
#include "platform/macos/MovementPace.h"

#include <QElapsedTimer>
#include <QTimer>

#include <memory>

namespace quillary {

/// Follows the pointer by AppKit's event monitors: a global one for events that go to other programs, a local
/// one for this program's own.
class MacPointerMonitor final : public PointerMonitor {
    Q_OBJECT

public:
    MacPointerMonitor();
    ~MacPointerMonitor() override;

    [[nodiscard]] QPointF location() const override;
    void refresh() override;

private:
    void follow();
    void tell();

    struct Native;
    std::unique_ptr<Native> m_native;
    MovementPace m_pace;
    QElapsedTimer m_clock;
    QTimer m_pending;
};

} // namespace quillary
