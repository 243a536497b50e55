#pragma once

#include "app/settings/StateButton.h"
#include "core/DockStyle.h"

#include <QImage>

#include <memory>

namespace quillary {

class MiniatureDock;

/// A style of docks: a small desktop with a dock of that style over the style's name. A click anywhere on it
/// chooses it.
class StyleTile : public StateButton {
    Q_OBJECT

public:
    /// The desktop's size, points.
    static constexpr QSizeF previewSize{84, 54};

    explicit StyleTile(DockStyle style, QWidget* parent = nullptr);
    ~StyleTile() override;

    [[nodiscard]] DockStyle style() const { return shown; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void drawPreview(QPainter& painter, const QRectF& preview);

    DockStyle shown;
    std::unique_ptr<MiniatureDock> miniature;
    /// Its picture as it was last drawn, for the palette of that key.
    QImage dock;
    qint64 dockPalette = 0;
};

} // namespace quillary
