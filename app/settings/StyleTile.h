#pragma once

#include "app/settings/StateButton.h"
#include "core/DockStyle.h"

#include <QImage>
#include <QRadioButton>

#include <memory>

namespace quillary {

class MiniatureDock;

/// A style of docks: a small desktop with a dock of that style over the style's name. A click anywhere on it
/// chooses it.
class StyleTile : public StateButton<QRadioButton> {
    Q_OBJECT

public:
    /// The desktop's size, points.
    static constexpr QSizeF previewSize{84, 54};

    explicit StyleTile(DockStyle style, QWidget* parent = nullptr);
    ~StyleTile() override;

    [[nodiscard]] DockStyle style() const { return m_style; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawPreview(QPainter& painter, const QRectF& preview);

    DockStyle m_style;
    std::unique_ptr<MiniatureDock> m_miniature;
    /// The last picture of the miniature, and the key of the palette that it was drawn with.
    QImage m_dock;
    qint64 m_dockPalette = 0;
};

} // namespace quillary
