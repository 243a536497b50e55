#pragma once

#include "platform/x11/X11Connection.h"

#include <QObject>

namespace quillary {

/// Whether a compositing manager blends translucent windows: it owns the selection _NET_WM_CM_Sn of the
/// screen (EWMH).
class X11Compositor final : public QObject {
    Q_OBJECT

public:
    explicit X11Compositor(X11Connection& server);

    [[nodiscard]] bool isRunning() const { return running; }

Q_SIGNALS:
    /// The compositor came or went.
    void changed();

private:
    void handleEvent(const xcb_generic_event_t* event);
    void setRunning(bool now);

    X11Connection& connection;
    xcb_atom_t selection = XCB_ATOM_NONE;
    int selectionEvent = -1;
    bool running = false;
};

} // namespace quillary
