#pragma once

#include "platform/PointerMonitor.h"
#include "platform/x11/X11Connection.h"

#include <QTimer>

#include <memory>
#include <optional>

namespace quillary {

class X11Screens;

/// Tracks the pointer by raw XInput 2 events, which the server delivers even while another client has grabbed
/// the pointer. It has a separate connection, so that it can stop listening between two frames. After the
/// last movement it queries the pointer once more and is then idle.
class X11PointerMonitor final : public PointerMonitor {
    Q_OBJECT

public:
    X11PointerMonitor(std::unique_ptr<X11Connection> connection, const X11Screens& screens);

    [[nodiscard]] QPointF location() const override;
    void refresh() override;

    /// The time between two queries while the pointer moves, in milliseconds: one frame of the screen with
    /// the highest refresh rate, clamped to 4 to 16 ms because some screens report implausible rates.
    [[nodiscard]] static int frameInterval();
    /// The time from the last movement to the final query, in milliseconds. While another client freezes the
    /// pointer, raw events arrive but the location does not change, and releasing it sends no event.
    static constexpr int lastLookDelay = 250;

private:
    struct Pointer {
        QPointF location;
        // The middle or right button is held and the left one is not.
        bool dragsWithAnotherButton = false;
    };

    void handleEvent(const xcb_generic_event_t* event);
    void handleSettled();
    void endFrame();
    void selectRawEvents();
    [[nodiscard]] std::optional<Pointer> query() const;

    std::unique_ptr<X11Connection> m_connection;
    const X11Screens& m_screens;
    QTimer m_frame;
    QTimer m_lastLook;
    std::optional<QPointF> m_lastEmitted;
    std::uint8_t m_extensionOpcode = 0;
    bool m_moving = false;
};

} // namespace quillary
