#pragma once

#include "platform/x11/X11SelectionOwner.h"

#include <QObject>

namespace quillary {

/// Whether a compositing manager blends translucent windows: it owns the selection _NET_WM_CM_Sn of the
/// screen (EWMH).
class X11Compositor final : public QObject {
    Q_OBJECT

public:
    explicit X11Compositor(X11Connection& server);

    [[nodiscard]] bool isRunning() const { return owner.isPresent(); }

Q_SIGNALS:
    /// The compositor came or went.
    void changed();

private:
    X11SelectionOwner owner;
};

} // namespace quillary
