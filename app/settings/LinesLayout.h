#pragma once

#include "app/settings/ListLayout.h"

#include <QRect>

#include <vector>

namespace quillary {

/// Places widgets beside each other at the size of their hints, `spacing()` apart, in as many lines as the
/// width asks for.
class LinesLayout : public ListLayout {
    Q_OBJECT

public:
    using ListLayout::ListLayout;

    /// With all on one line.
    [[nodiscard]] QSize sizeHint() const override;
    /// That of the largest widget.
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] int heightForWidth(int width) const override;
    void setGeometry(const QRect& rect) override;

private:
    /// One for each widget, in lines of that width from (0, 0) on, read from left to right.
    [[nodiscard]] std::vector<QRect> placesIn(int width) const;
};

} // namespace quillary
