#pragma once

#include "core/DockEdge.h"
#include "core/DockStyle.h"

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QRegion>
#include <QSizeF>
#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace quillary {

/// Everything a dock shows at one moment, as numbers: points in the panel's coordinates (origin top-left, y
/// down). Two equal scenes look the same.
struct DockScene {
    struct Background {
        QRectF rect;
        double cornerRadius = 0;
        bool operator==(const Background&) const = default;
    };
    struct Dot {
        QPointF center;
        double diameter = 0;
        /// Absent: the primary text colour at `opacity`.
        std::optional<QColor> color{};
        double opacity = 1;
        /// A shadow of radius 3 around it; absent when it has none.
        std::optional<QColor> glow{};
        bool operator==(const Dot&) const = default;
    };
    struct Icon {
        std::string path;
        QRectF rect;
        double opacity = 1;
        std::optional<Dot> dot{};
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
        double opacity = 1;
        bool operator==(const Label&) const = default;
    };
    struct Hint {
        QString text;
        QPointF center;
        bool operator==(const Hint&) const = default;
    };

    QSizeF panelSize;
    DockEdge edge = DockEdge::bottom;
    DockStyle style = DockStyle::glass;
    /// How far the whole is moved off the screen, and how opaque it is.
    QPointF offset;
    double opacity = 1;
    Background background;
    std::vector<Icon> icons;
    std::vector<Separator> separators;
    std::optional<Label> label;
    std::optional<Hint> hint;

    bool operator==(const DockScene&) const = default;

    /// The whole points of the panel that may look different in the two scenes; empty when they are equal.
    [[nodiscard]] static QRegion damage(const DockScene& before, const DockScene& after);
};

} // namespace quillary
