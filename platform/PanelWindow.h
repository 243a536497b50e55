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
/// dresses a top-level widget (its contents) that the caller draws and owns; the widget must outlive the
/// window's use of it.
class PanelWindow : public QObject {
    Q_OBJECT

public:
    /// Moves and sizes the window. Global points, whole numbers.
    virtual void setFrame(const QRect& frame) = 0;
    /// The frame last set.
    [[nodiscard]] virtual QRect frame() const = 0;

    /// The part of the window that takes clicks and drops, in the panel's coordinates (points, origin
    /// top-left); the rest, and all of it when the region is empty, lets them through to the window below.
    /// Clips no drawing. Setting the same region again costs nothing.
    virtual void setInputRegion(const QRegion& region) = 0;
    /// Whether all clicks pass, for window systems that cannot shape the input of a window. A no-op where
    /// setInputRegion is exact.
    virtual void setIgnoresMouseEvents(bool ignores) = 0;
    /// The part of the window that is seen, and can be clicked, while `composited` is false; ignored while it
    /// is true.
    virtual void setVisibleShape(const QRegion& region) = 0;
    /// Whether the desktop blends translucent windows now. Without that, contents must be painted opaque and
    /// setVisibleShape kept up to date.
    [[nodiscard]] virtual bool composited() const = 0;

    /// Whether the desktop shows what lies behind a translucent window blurred where it is asked to.
    [[nodiscard]] virtual bool blursBehind() const = 0;
    /// The part behind which it is asked to, in the panel's coordinates; empty for none. Does nothing where
    /// `blursBehind` is false.
    virtual void setBlurRegion(const QRegion& region) = 0;

    /// Shows the window in front without taking the focus.
    virtual void orderFront() = 0;
    /// Opens a menu whose corner is at a point of the panel (points, origin top-left), moved so that all of
    /// it is on the panel's screen, and lets pointer and keyboard work in it until it closes; a menu that is
    /// open already anywhere in the program closes first. `closed` runs once, after the handler of what was
    /// chosen, if anything was; it does not run when the window goes first, and the menu goes with the
    /// window.
    virtual void popUpMenu(Menu menu, QPoint location, std::function<void()> closed) = 0;
    /// Takes the window off the screen for good.
    virtual void close() = 0;
    [[nodiscard]] virtual bool isVisible() const = 0;
    /// A picture of the contents at the screen's scale; null when it cannot be made.
    [[nodiscard]] virtual QImage grab() = 0;

Q_SIGNALS:
    /// The desktop began or ceased to blend translucent windows, or to blur behind them.
    void compositedChanged();
    /// The pointer entered or left the input region without a movement that PointerMonitor would tell.
    void pointerCrossed();
};

} // namespace quillary
