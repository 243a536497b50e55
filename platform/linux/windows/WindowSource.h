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
    /// The windows that exist, in the order in which they were first shown, without this program's own.
    [[nodiscard]] virtual std::vector<WindowInfo> windows() const = 0;
    /// The window that has the focus; absent when none has or it is this program's own. While the focus
    /// passes from one window to another, this is still the former.
    [[nodiscard]] virtual std::optional<std::uint64_t> activeWindow() const = 0;
    /// Whether the focus is on a window of this program. Changes are notified by activeWindowChanged.
    [[nodiscard]] virtual bool isOwnWindowActive() const = 0;
    /// The windows from the bottom to the top of the stack.
    [[nodiscard]] virtual std::vector<std::uint64_t> stackingOrder() const = 0;
    /// The frame of the window with the focus when it is full-screen, this program's own included; global
    /// points. As with activeWindow, the former window counts while the focus passes to another.
    [[nodiscard]] virtual std::optional<QRectF> fullScreenFrame() const = 0;

    /// Brings the window to the front with the focus, out of minimisation and from another desktop. No effect
    /// when it no longer exists.
    virtual void activate(std::uint64_t id) = 0;
    /// Asks the window to close, as its close button would. No effect when it no longer exists.
    virtual void close(std::uint64_t id) = 0;

Q_SIGNALS:
    /// A window appeared, disappeared or changed a property.
    void windowsChanged();
    void activeWindowChanged();
    void fullScreenChanged();
};

} // namespace quillary
