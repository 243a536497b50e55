#pragma once

#include "app/view/DockContents.h"
#include "core/DockStyle.h"
#include "platform/FileIcons.h"

#include <QImage>
#include <QSizeF>

#include <memory>

class QPalette;

namespace quillary {

/// A small picture of a dock with four coloured squares as items, made by the code that draws docks.
class MiniatureDock {
public:
    /// The side of an item's square in the picture, points.
    static constexpr double itemSide = 11;

    explicit MiniatureDock(DockStyle style);

    /// The dock at the bottom of a picture of that size, centred; clear around it. `size`:
    /// points; `ratio`: device pixels per point.
    [[nodiscard]] QImage picture(QSizeF size, double ratio, const QPalette& palette) const;

private:
    /// How much of an item's side its square takes.
    double m_squareShare;
    std::unique_ptr<FileIcons> m_icons;
    DockContents m_contents;
};

} // namespace quillary
