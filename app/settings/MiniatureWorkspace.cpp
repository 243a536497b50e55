#include "app/settings/MiniatureWorkspace.h"

#include <QIcon>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <array>

namespace quillary {

namespace {

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

// A corner of 3 points on a square of 11.
constexpr double cornerShare = 3.0 / 11;
constexpr int pixels = 88;

} // namespace

std::vector<std::string> MiniatureWorkspace::items() {
    std::vector<std::string> paths;
    std::ranges::transform(squares(), std::back_inserter(paths),
                           [](const Square& square) { return square.path; });
    return paths;
}

QIcon MiniatureWorkspace::icon(const std::string& path) const {
    const auto square =
        std::ranges::find_if(squares(), [&path](const Square& one) { return path == one.path; });
    QPixmap picture(pixels, pixels);
    picture.fill(Qt::transparent);
    if (square != squares().end()) {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(square->colour);
        const double side = pixels * squareShare;
        const double inset = (pixels - side) / 2;
        painter.drawRoundedRect(QRectF(inset, inset, side, side), side * cornerShare, side * cornerShare);
    }
    return {picture};
}

} // namespace quillary
