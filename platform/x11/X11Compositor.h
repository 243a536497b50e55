#pragma once

#include "platform/x11/X11SelectionOwner.h"

#include <QObject>

namespace quillary {

/// Watches for a compositing manager, which owns the screen's selection _NET_WM_CM_Sn (EWMH), and for its
/// support of blur behind windows with the property _KDE_NET_WM_BLUR_BEHIND_REGION, which it announces by a
/// property of that name on the root window (KWin's convention).
class X11Compositor final : public QObject {
    Q_OBJECT

public:
    explicit X11Compositor(X11Connection& connection);

    [[nodiscard]] bool isRunning() const { return m_owner.isPresent(); }
    [[nodiscard]] bool blursBehind() const { return isRunning() && m_blurs; }

Q_SIGNALS:
    /// `isRunning` or `blursBehind` changed.
    void changed();

private:
    void handleEvent(const xcb_generic_event_t* event);
    [[nodiscard]] bool offersBlur() const;

    X11Connection& m_connection;
    X11SelectionOwner m_owner;
    bool m_blurs = false;
};

} // namespace quillary
