#pragma once

#include "app/settings/ListLayout.h"

#include <QRect>

namespace quillary {

/// Places two widgets at the two ends of a line or, where the line is too short for both, the second below
/// the first. On one line the second has the width of its size hint, and the first has the rest but for
/// `spacing()`. There must be two from the first laying out on.
class TwoEndsLayout : public ListLayout {
    Q_OBJECT

public:
    using ListLayout::ListLayout;

    /// With both on one line.
    [[nodiscard]] QSize sizeHint() const override;
    /// As wide as the wider of the two needs, and as high as both are on one line.
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] int heightForWidth(int width) const override;
    void setGeometry(const QRect& rect) override;

private:
    struct Places {
        QRect leading, trailing;
    };
    /// In a line of that width from (0, 0) on, read from left to right; as high as the widgets need.
    [[nodiscard]] Places placesIn(int width) const;
};

} // namespace quillary
