#pragma once

#include "platform/linux/windows/WindowInfo.h"

#include <QObject>
#include <QRectF>

#include <optional>
#include <vector>

namespace quillary {

/// The windows that other programs show, whatever the window system.
class WindowSource : public QObject {
    Q_OBJECT

public:
    /// The windows there are, in the order in which they were first shown; this program's own are left out.
    [[nodiscard]] virtual std::vector<WindowInfo> windows() const = 0;
    /// The window that has the focus; absent when none has or it is this program's own. A moment without
    /// focus between two windows is not told.
    [[nodiscard]] virtual std::optional<std::uint64_t> activeWindow() const = 0;
    /// The windows from the bottom to the top of the stack.
    [[nodiscard]] virtual std::vector<std::uint64_t> stackingOrder() const = 0;
    /// What the window with the focus covers when it is full-screen, this program's own included; global
    /// points. As with activeWindow, a moment without focus is not told.
    [[nodiscard]] virtual std::optional<QRectF> fullScreenFrame() const = 0;

    /// Brings the window to the front with focus, out of minimisation and from another desktop. Nothing
    /// happens when it has gone.
    virtual void activate(std::uint64_t id) = 0;
    /// Asks the window to close, as its close button would. Nothing happens when it has gone.
    virtual void close(std::uint64_t id) = 0;

Q_SIGNALS:
    /// A window came, went or changed what it says of itself.
    void windowsChanged();
    void activeWindowChanged();
    void fullScreenChanged();
};

} // namespace quillary
