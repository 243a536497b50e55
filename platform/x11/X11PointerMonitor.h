#pragma once

#include "platform/PointerMonitor.h"
#include "platform/x11/X11Connection.h"

#include <QTimer>

#include <memory>
#include <optional>

namespace quillary {

class X11Screens;

/// The pointer by raw XInput 2 events, which the server delivers whoever has the pointer grabbed, on a
/// connection of its own so that a fast mouse burdens no other. Between two frames it sleeps; a moment after
/// the last movement it looks once more, and then does nothing at all.
class X11PointerMonitor final : public PointerMonitor {
    Q_OBJECT

public:
    X11PointerMonitor(std::unique_ptr<X11Connection> connection, const X11Screens& screens);

    [[nodiscard]] QPointF location() const override;
    void refresh() override;

    /// The time between two looks at a moving pointer, in milliseconds: a frame of the fastest screen, within
    /// bounds for screens that tell nonsense.
    [[nodiscard]] static int frameInterval();
    /// The time after the last movement at which it looks once more, in milliseconds: raw events are sent
    /// even while another client holds the pointer frozen, and nothing is sent when it is let go at its new
    /// place.
    static constexpr int lastLookDelay = 250;

private:
    void handleEvent(const xcb_generic_event_t* event);
    void handleSettled();
    void endFrame();
    void selectRawEvents();
    [[nodiscard]] std::optional<QPointF> query() const;

    std::unique_ptr<X11Connection> m_connection;
    const X11Screens& m_screens;
    QTimer m_frame;
    QTimer m_lastLook;
    std::optional<QPointF> m_lastTold;
    std::uint8_t m_extensionOpcode = 0;
    bool m_moving = false;
};

} // namespace quillary
