#include "app/settings/MiniatureDock.h"

#include "app/view/Appearance.h"
#include "app/view/DockPainter.h"
#include "app/view/DockSceneBuilder.h"
#include "app/view/IconCache.h"
#include "app/view/IconSprites.h"
#include "app/view/LabelText.h"
#include "app/view/Plates.h"
#include "core/DockConfig.h"

#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace quillary {

namespace {

// Longer than four items need, so that they keep their size.
constexpr double room = 1000;

// A dock of the usual size would have a background too thin to tell one from another when made this small.
constexpr double fullItemSide = 28;

// Drawn larger and then made smaller: whole pixels are too coarse for gaps this small.
constexpr double detail = 4;

// A full square would cover the disc behind it, which pictures of applications with their clear rims do not.
constexpr double shareOnDisc = 0.8;

struct Square {
    const char* path;
    QColor colour;
};

const std::array<Square, 4>& squares() {
    static const std::array<Square, 4> all{{{"/blue", QColor(10, 122, 255)},
                                            {"/orange", QColor(255, 149, 10)},
                                            {"/green", QColor(48, 199, 89)},
                                            {"/pink", QColor(255, 55, 105)}}};
    return all;
}

/// The squares as icons, each clear around a square that takes that share of its side.
class SquareIcons final : public FileIcons {
public:
    explicit SquareIcons(double share) : m_share(share) {}

    [[nodiscard]] QIcon icon(const std::string& path) const override {
        constexpr int pixels = 88;
        // A corner of 3 points on a square of 11.
        constexpr double cornerShare = 3.0 / 11;
        QPixmap picture(pixels, pixels);
        picture.fill(Qt::transparent);
        const auto square = std::ranges::find(squares(), path, &Square::path);
        if (square != squares().end()) {
            QPainter painter(&picture);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(square->colour);
            const double side = pixels * m_share;
            const double inset = (pixels - side) / 2;
            painter.drawRoundedRect(QRectF(inset, inset, side, side), side * cornerShare, side * cornerShare);
        }
        return {picture};
    }

private:
    double m_share;
};

DockContents contentsOf(DockStyle style) {
    std::vector<DockCell> cells;
    for (const Square& square : squares()) {
        cells.push_back(DockCell::item(square.path, DockCell::Origin::pinned));
    }
    DockConfig config({}, {}, {});
    config.style = style;
    config.magnification = Magnification::off;
    config.iconSize = fullItemSide;
    const DockGeometry geometry(config, cells, room);
    return {.row = {std::move(cells), geometry}};
}

} // namespace

MiniatureDock::MiniatureDock(DockStyle style)
    : m_squareShare(style == DockStyle::bubbles ? shareOnDisc : 1),
      m_icons(std::make_unique<SquareIcons>(m_squareShare)),
      m_contents(contentsOf(style)) {}

QImage MiniatureDock::picture(QSizeF size, double ratio, const QPalette& palette) const {
    const DockGeometry& geometry = m_contents.row.geometry;
    const DockScene scene = buildDockScene(m_contents, {}, {});

    const double reduction = itemSide / (geometry.size * m_squareShare);
    const double fine = ratio * detail;
    QImage image((size * fine).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(fine * reduction);
    const Appearance appearance = Appearance::of(palette, Blending::translucent);
    IconSprites sprites(std::make_shared<IconCache>(*m_icons));
    sprites.setLook(IconSprites::Look::of(geometry, appearance, fine * reduction));
    Plates plates;
    LabelText labelText;
    QPainter painter(&image);
    // The toolkit follows ratios from 1 on by itself.
    const double rest = std::min(fine * reduction, 1.0);
    painter.scale(rest, rest);
    const QSizeF seen = size / reduction;
    DockPainter(painter, appearance, sprites, plates, labelText)
        .draw(scene,
              {(seen.width() - scene.panelSize.width()) / 2, seen.height() - scene.panelSize.height()});
    painter.end();
    QImage small = image.scaled((size * ratio).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    small.setDevicePixelRatio(ratio);
    return small;
}

} // namespace quillary
