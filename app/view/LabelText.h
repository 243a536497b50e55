#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QSize>
#include <QString>

#include <optional>

namespace quillary {

/// The text of a dock's label, rendered once at device pixels: while the pointer stays on an icon the label
/// moves with every frame, and its text need not be laid out for each.
class LabelText {
public:
    struct Look {
        QString text;
        QFont font;
        /// Where it is centred. Device pixels.
        QSize room;
        /// Whether that is too small for it: then its end is left out.
        bool cut = false;
        QColor ink;
        /// Device pixels per point.
        double ratio = 1;
        bool operator==(const Look&) const = default;
    };

    /// A picture of the room.
    [[nodiscard]] const QImage& image(const Look& look);

private:
    std::optional<Look> m_look;
    QImage m_picture;
};

} // namespace quillary
