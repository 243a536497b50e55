#pragma once

#include "platform/x11/X11SelectionOwner.h"

#include <QObject>

namespace quillary {

/// Whether a compositing manager blends translucent windows: it owns the selection _NET_WM_CM_Sn of the
/// screen (EWMH). And whether it blurs behind windows that carry the property
/// _KDE_NET_WM_BLUR_BEHIND_REGION: then the root window carries one of that name too (KWin's convention).
class X11Compositor final : public QObject {
    Q_OBJECT

public:
    explicit X11Compositor(X11Connection& connection);

    [[nodiscard]] bool isRunning() const { return m_owner.isPresent(); }
    [[nodiscard]] bool blursBehind() const { return isRunning() && m_blurs; }

Q_SIGNALS:
    /// The compositor came or went, or began or ceased to blur.
    void changed();

private:
    void handleEvent(const xcb_generic_event_t* event);
    [[nodiscard]] bool offersBlur() const;

    X11Connection& m_connection;
    X11SelectionOwner m_owner;
    bool m_blurs = false;
};

} // namespace quillary
