#pragma once

#include "app/view/DockScene.h"

#include <QColor>
#include <QImage>

#include <cstddef>
#include <map>
#include <memory>
#include <string>

namespace quillary {

class DockGeometry;
class IconCache;
struct Appearance;

/// Icons and the discs behind them with their shadows, rendered at device pixels: of each one sprite at the
/// resting size, which draws as a plain copy, and a larger one that magnified icons are scaled down from.
class IconSprites {
public:
    struct Sprite {
        QImage image;
        /// How far the image reaches beyond the square of the icon, or of the disc, at each side. Device
        /// pixels of the image.
        int margin = 0;
        /// The side of that square.
        int side = 0;
    };
    /// The look of the sprites.
    struct Look {
        /// Sides of a resting icon and of the largest one. Device pixels.
        int resting = 0;
        int largest = 0;
        /// Device pixels per point.
        double ratio = 1;
        /// Points.
        DockScene::Shadow shadow;
        DockScene::Shadow discShadow;
        /// The disc's diameter as a share of the icon's size.
        double discShare = 1;
        QColor discFill{Qt::transparent};
        QColor discBorder{Qt::transparent};
        bool operator==(const Look&) const = default;

        /// The sprites of a dock of that geometry on a device of that ratio.
        [[nodiscard]] static Look of(const DockGeometry& geometry, const Appearance& appearance,
                                     double ratio);
    };

    explicit IconSprites(std::shared_ptr<IconCache> icons);

    /// Drops all sprites when the look changes.
    void setLook(const Look& look);

    /// The path's sprite for an icon drawn at this size (device pixels): the resting one when that is its
    /// size.
    [[nodiscard]] const Sprite& icon(const std::string& path, double drawnSize);
    /// The disc behind an icon drawn at this size.
    [[nodiscard]] const Sprite& disc(double iconSize);

    /// The memory that the sprites use, bytes.
    [[nodiscard]] std::size_t bytes() const;

private:
    struct Pair {
        Sprite resting;
        Sprite largest;
    };
    [[nodiscard]] bool fits(double size) const;
    [[nodiscard]] QImage picture(const std::string& path, int size);
    [[nodiscard]] Sprite renderIcon(const std::string& path, int size);
    [[nodiscard]] Sprite renderDisc(int iconSize) const;
    [[nodiscard]] int marginOf(const DockScene::Shadow& shadow) const;

    std::shared_ptr<IconCache> m_icons;
    std::map<std::string, Pair, std::less<>> m_sprites;
    Pair m_discs;
    Look m_look;
};

} // namespace quillary
