#include "core/DockLayout.h"

#include "core/Fatal.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <numeric>

namespace quillary::DockLayout {

double length(std::span<const double> widths, double gap, double margin) {
    const double gaps = widths.empty() ? 0.0 : static_cast<double>(widths.size() - 1);
    return 2 * margin + gap * gaps + std::accumulate(widths.begin(), widths.end(), 0.0);
}

std::vector<double> restCenters(std::span<const double> widths, double gap, double margin) {
    std::vector<double> centers;
    centers.reserve(widths.size());
    double position = margin;
    for (const double width : widths) {
        centers.push_back(position + width / 2);
        position += width + gap;
    }
    return centers;
}

double magnifyScale(double distance, double iconSize, double amount) {
    const double radius = magnificationRadius * iconSize;
    const double away = std::abs(distance);
    if (!(amount > 0) || !(away < radius)) {
        return 1.0;
    }
    return 1 + amount * std::cos(away / radius * std::numbers::pi / 2);
}

Shifted shifted(std::span<const double> centers, std::span<const double> widths,
                std::span<const double> scales) {
    const std::size_t pairs = std::min(widths.size(), scales.size());
    if (centers.size() > pairs) {
        fatal("a row was spread with more centres than widths or scales");
    }
    const auto growth = [&](std::size_t at) { return widths[at] * (scales[at] - 1); };
    Shifted result;
    for (std::size_t at = 0; at < pairs; ++at) {
        result.extra += growth(at);
    }
    result.centers.reserve(centers.size());
    double before = 0;
    for (std::size_t at = 0; at < centers.size(); ++at) {
        const double grown = growth(at);
        result.centers.push_back(centers[at] + before + grown / 2 - result.extra / 2);
        before += grown;
    }
    return result;
}

} // namespace quillary::DockLayout
