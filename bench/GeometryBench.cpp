#include "app/DockGeometry.h"

#include <benchmark/benchmark.h>

#include <string>

namespace quillary {
namespace {

std::vector<DockCell> cells(std::size_t count) {
    std::vector<DockCell> result;
    for (std::size_t i = 0; i < count; ++i) {
        result.push_back(
            DockCell::item("/usr/share/applications/application" + std::to_string(i) + ".desktop",
                           DockCell::Origin::pinned));
    }
    return result;
}

/// Geometry, scales and layout of one dock for one pointer position.
void layoutOfCells(benchmark::State& state) {
    const auto list = cells(static_cast<std::size_t>(state.range(0)));
    DockConfig config("key", "name", {});
    config.magnification = Magnification::big;
    double along = 0;
    for (auto _ : state) {
        const DockGeometry geometry(config, list, 4000);
        along = along > geometry.alongLength() ? 0 : along + 1;
        const auto scales = geometry.scales(along, list);
        auto spread = geometry.layout(scales);
        benchmark::DoNotOptimize(spread.centers.data());
    }
}
BENCHMARK(layoutOfCells)->Arg(10)->Arg(40);

} // namespace
} // namespace quillary
