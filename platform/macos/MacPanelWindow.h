#pragma once

#include "platform/PanelWindow.h"

#include <QPointer>

#include <memory>

class QWindow;

namespace quillary {

/// A dock's window as an NSPanel that never activates the program: floating, on all spaces except those of
/// full-screen windows, unaffected by Exposé, without a shadow, not movable.
///
/// AppKit lets clicks through for whole windows only, so `setIgnoresMouseEvents` applies and the input region
/// does not.
class MacPanelWindow final : public PanelWindow {
    Q_OBJECT

public:
    /// `contents` must be a top-level widget that was never shown.
    explicit MacPanelWindow(QWidget& contents);
    ~MacPanelWindow() override;

    void setFrame(const QRect& frame) override;
    [[nodiscard]] QRect frame() const override;
    /// No-op.
    void setInputRegion(const QRegion& region) override;
    void setIgnoresMouseEvents(bool ignores) override;
    /// No-op: the desktop always blends.
    void setVisibleShape(const QRegion& region) override;
    [[nodiscard]] bool composited() const override { return true; }
    [[nodiscard]] bool blursBehind() const override { return true; }
    void setBlurRegion(const QRegion& region) override;
    void orderFront() override;
    void popUpMenu(Menu menu, QPoint location, std::function<void()> closed) override;
    void close() override;
    [[nodiscard]] bool isVisible() const override;
    [[nodiscard]] QImage grab() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void dress();
    void applyBlur();

    struct Native;
    std::unique_ptr<Native> m_native;
    QPointer<QWidget> m_contents;
    // The frame that is wanted, and the one that users of the window know.
    QRect m_frame;
    QRect m_reportedFrame;
    QRegion m_blurRegion;
    bool m_ignoresMouse = true;
    bool m_closed = false;
};

} // namespace quillary
