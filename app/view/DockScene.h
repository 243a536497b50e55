#pragma once

#include "app/ItemId.h"
#include "app/view/Materials.h"
#include "core/DockEdge.h"
#include "core/DockStyle.h"

#include <QPointF>
#include <QRectF>
#include <QRegion>
#include <QSizeF>
#include <QString>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillary {

/// Everything a dock shows at one moment, as numbers: points in the panel's coordinates (origin top-left, y
/// down). Two equal scenes look the same.
struct DockScene {
    /// A fixed colour or one of the desktop's, with an opacity.
    struct Ink {
        enum class Source { white, black, primaryText, accent, amber, red };
        Source source = Source::white;
        double opacity = 0;
        bool operator==(const Ink&) const = default;
    };
    /// A gaussian shadow; its standard deviation is half the radius.
    struct Shadow {
        double opacity = 0;
        double radius = 0;
        QPointF offset;
        bool operator==(const Shadow&) const = default;
    };
    struct Background {
        enum class Outline {
            /// A rectangle with continuous corners.
            rounded,
            /// Fully rounded ends.
            capsule,
            /// A trapezoid, drawn in at the side that faces into the screen.
            shelf,
        };
        QRectF rect;
        Outline outline = Outline::rounded;
        /// 0 for a shelf.
        double cornerRadius = 0;
        Material material = Material::none;
        /// White laid over the material: at the side that faces into the screen, and at the screen edge.
        double farWhite = 0;
        double nearWhite = 0;
        Ink border;
        /// 0 for none. Inside the outline; along the middle of a shelf's.
        double borderWidth = 0;
        Shadow shadow;
        bool operator==(const Background&) const = default;
    };
    struct Dot {
        QPointF center;
        double diameter = 0;
        Ink ink{};
        /// The colour of a shadow of radius 3 around it; opacity 0 for none.
        Ink glow{};
        bool operator==(const Dot&) const = default;
    };
    /// The disc behind an icon.
    struct Disc {
        QPointF center;
        double diameter = 0;
        bool operator==(const Disc&) const = default;
    };
    /// The memory figure on an icon.
    struct Pill {
        QString text;
        /// Pixel size of its font, points of the screen.
        double fontSize = 0;
        /// The capsule, its padding included.
        QRectF rect;
        bool operator==(const Pill&) const = default;
    };
    struct Icon {
        std::string path;
        /// How many icons of the same path precede it.
        std::size_t occurrence = 0;
        /// The square of its image.
        QRectF rect;
        double opacity = 1;
        /// Opacity of the icon and all that belongs to it, while it appears or goes, 0…1.
        double presence = 1;
        Shadow shadow;
        /// How far it is pressed, 0…1: a pressed icon is smaller, about its centre, and darker.
        double pressed = 0;
        /// Opacity of the accent colour over it.
        double highlight = 0;
        std::optional<Disc> disc{};
        std::optional<Dot> dot{};
        std::optional<Pill> pill{};
        [[nodiscard]] ItemId id() const { return {path, occurrence}; }
        [[nodiscard]] bool is(const ItemId& item) const {
            return occurrence == item.occurrence && path == item.path;
        }
        bool operator==(const Icon&) const = default;
    };
    struct Separator {
        QRectF rect;
        /// Of the primary text colour.
        double opacity = 0;
        bool operator==(const Separator&) const = default;
    };
    struct Label {
        QString text;
        /// The capsule, its padding included.
        QRectF rect;
        /// Where the text stands.
        QRectF textRect;
        /// Whether the text is longer than that and is elided.
        bool cut = false;
        double opacity = 1;
        bool operator==(const Label&) const = default;
    };
    struct Hint {
        QString text;
        /// What the text is wrapped and centred in, within the panel.
        QRectF room;
        bool operator==(const Hint&) const = default;
    };

    /// A pressed icon's scale, and by how much of full brightness it is darkened.
    static constexpr double pressedScale = 0.86;
    static constexpr double pressedDarkening = 0.15;
    /// The corner radius of an icon's highlight, as a share of its size.
    static constexpr double highlightCorner = 0.22;
    static constexpr double glowRadius = 3;
    /// The diameter of the disc behind an icon, as a share of the icon's size.
    static constexpr double discShare = 1.14;
    static constexpr Shadow discShadow{.opacity = 0.25, .radius = 5, .offset = {0, 2}};
    static constexpr double discBorder = 0.25;
    static constexpr Shadow labelShadow{.opacity = 0.2, .radius = 3, .offset = {0, 1}};
    static constexpr double labelBorder = 0.2;
    static constexpr double pillBorder = 0.9;

    /// What a point has to be on to mean an icon.
    enum class Reach {
        /// The icon's place along the edge and 3 points beyond either side of it, at any depth: so clicks
        /// and drags find the icon above a pointer that is pushed against the edge.
        column,
        /// The square of its image: drops beside it are for the background.
        square,
    };

    QSizeF panelSize;
    DockEdge edge = DockEdge::bottom;
    DockStyle style = DockStyle::glass;
    /// The side of a resting icon.
    double iconSize = 0;
    /// How far the whole scene is moved off the screen, and its opacity.
    QPointF offset;
    double opacity = 1;
    Background background;
    std::vector<Icon> icons;
    std::vector<Separator> separators;
    std::optional<Label> label;
    std::optional<Hint> hint;

    bool operator==(const DockScene&) const = default;

    /// The first icon that a point of the panel means; null when it means none.
    [[nodiscard]] const Icon* iconAt(QPointF point, Reach reach) const;
    /// The shadow of an icon's image in a dock of that style.
    [[nodiscard]] static Shadow iconShadow(DockStyle style);
    /// The whole points that the icon, with all that belongs to it, may touch before the scene's offset.
    [[nodiscard]] static QRect extentOf(const Icon& icon);
    /// The whole points of the panel that may look different in the two scenes; empty when they are equal.
    [[nodiscard]] static QRegion damage(const DockScene& before, const DockScene& after);
};

} // namespace quillary
