#pragma once

#include "platform/Menu.h"

#include <QImage>
#include <QObject>
#include <QRect>
#include <QRegion>

#include <functional>

class QWidget;

namespace quillary {

/// The window of one dock: borderless, translucent, above other windows, on all desktops, never focused. It
/// turns a top-level widget (its contents), which the caller owns and paints, into such a window. The widget
/// must outlive this object or the call of `close`.
class PanelWindow : public QObject {
    Q_OBJECT

public:
    /// Moves and resizes the window. Global points.
    virtual void setFrame(const QRect& frame) = 0;
    /// Where the window is: the frame last set, unless the window system insists on another one. Global
    /// points.
    [[nodiscard]] virtual QRect frame() const = 0;

    /// Sets the part of the window that receives clicks and drops, in the panel's coordinates (points, origin
    /// top-left). Elsewhere they go to the window below; an empty region lets all of them through. Does not
    /// clip the contents. Setting the same region again is free.
    virtual void setInputRegion(const QRegion& region) = 0;
    /// Sets whether the whole window lets clicks through, for window systems without input regions. A no-op
    /// where setInputRegion is exact.
    virtual void setIgnoresMouseEvents(bool ignores) = 0;
    /// Sets the part of the window that is visible and clickable while `composited` is false; ignored while
    /// it is true. Panel coordinates.
    virtual void setVisibleShape(const QRegion& region) = 0;
    /// Whether the desktop blends translucent windows now. While it does not, the contents must be opaque and
    /// setVisibleShape must be kept up to date.
    [[nodiscard]] virtual bool composited() const = 0;

    /// Whether the desktop can blur what lies behind a translucent window.
    [[nodiscard]] virtual bool blursBehind() const = 0;
    /// Sets the region behind which the desktop blurs, in the panel's coordinates; empty for none. Has no
    /// effect while `blursBehind` is false.
    virtual void setBlurRegion(const QRegion& region) = 0;

    /// Shows the window in front without taking the focus.
    virtual void orderFront() = 0;
    /// Opens a menu with a corner at a point of the panel (points, origin top-left), moved so that it fits on
    /// the panel's screen. The menu has the pointer and the keyboard until it closes. Any menu that the
    /// program has open is closed first. `closed` runs once, after the handler of the chosen entry, if any.
    /// When the window closes first, or the handler closes or destroys it, the menu closes with it and
    /// `closed` does not run.
    virtual void popUpMenu(Menu menu, QPoint location, std::function<void()> closed) = 0;
    /// Removes the window from the screen. It cannot be shown again.
    virtual void close() = 0;
    [[nodiscard]] virtual bool isVisible() const = 0;
    /// Renders the contents at the screen's scale; null on failure.
    [[nodiscard]] virtual QImage grab() = 0;

Q_SIGNALS:
    /// The window system moved or resized the window; not emitted by setFrame.
    void frameChanged();
    /// `composited` or `blursBehind` changed.
    void compositedChanged();
    /// The pointer entered or left the input region, possibly without a movement that PointerMonitor reports.
    void pointerCrossed();
};

} // namespace quillary
