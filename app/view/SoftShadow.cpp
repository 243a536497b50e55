#include "app/view/SoftShadow.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace quillary {

namespace {

std::vector<double> gaussian(double radius) {
    const double sigma = radius / 2;
    std::vector<double> kernel;
    double sum = 0;
    for (int i = -SoftShadow::reach(radius); i <= SoftShadow::reach(radius); ++i) {
        kernel.push_back(std::exp(-(i * i) / (2 * sigma * sigma)));
        sum += kernel.back();
    }
    for (double& weight : kernel) {
        weight /= sum;
    }
    return kernel;
}

/// Blurs the rows and turns the picture over its diagonal, so that a second pass blurs the columns and turns
/// it back.
QImage blurredAndTransposed(const QImage& source, const std::vector<double>& kernel) {
    QImage result(source.height(), source.width(), QImage::Format_Alpha8);
    const int half = static_cast<int>(kernel.size() / 2);
    const double* middle = kernel.data() + half;
    for (int y = 0; y < source.height(); ++y) {
        const uchar* row = source.constScanLine(y);
        for (int x = 0; x < source.width(); ++x) {
            const int first = std::max(-half, -x);
            const int last = std::min(half, source.width() - 1 - x);
            double value = 0;
            for (int i = first; i <= last; ++i) {
                value += middle[i] * row[x + i];
            }
            result.scanLine(x)[y] = static_cast<uchar>(std::lround(value));
        }
    }
    return result;
}

} // namespace

int SoftShadow::reach(double radius) {
    return static_cast<int>(std::ceil(2 * radius));
}

QImage SoftShadow::cast(const QImage& alpha, double radius, const QColor& colour) {
    QImage blurred = alpha.convertToFormat(QImage::Format_Alpha8);
    if (radius > 0) {
        const auto kernel = gaussian(radius);
        blurred = blurredAndTransposed(blurredAndTransposed(blurred, kernel), kernel);
    }
    QImage tinted(alpha.size(), QImage::Format_ARGB32_Premultiplied);
    tinted.fill(colour);
    QPainter tint(&tinted);
    tint.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    tint.drawImage(0, 0, blurred);
    return tinted;
}

} // namespace quillary
