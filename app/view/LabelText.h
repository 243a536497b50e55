#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QSize>
#include <QString>

#include <optional>

namespace quillary {

/// Caches the text of a dock's label, rendered at device pixels: while the pointer stays on an icon its label
/// moves with every frame, but the text stays the same.
class LabelText {
public:
    struct Look {
        QString text;
        QFont font;
        /// Where it is centred. Device pixels.
        QSize room;
        /// Whether the text is longer than that and is elided.
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
