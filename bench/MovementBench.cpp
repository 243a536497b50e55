#include "app/DockManager.h"
#include "app/DockModel.h"
#include "app/DockPanel.h"
#include "tests/fake/FakePlatform.h"

#include <benchmark/benchmark.h>

namespace quillary {
namespace {

using test::FakePlatform;

constexpr int itemsPerDock = 40;

/// Three screens in a row, each with a dock of 40 items at its bottom.
class ThreeScreens {
public:
    ThreeScreens() {
        std::vector<std::string> items;
        items.reserve(itemsPerDock);
        for (int i = 0; i < itemsPerDock; ++i) {
            items.push_back("/Applications/Application number " + std::to_string(i) + ".app");
        }
        platform.systemDock().pinned = items;
        for (int i = 0; i < 3; ++i) {
            platform.screens().connected.push_back(
                test::screenNamed("SCREEN" + std::to_string(i), QRectF(i * 2560, 0, 2560, 1440)));
        }
        manager = std::make_unique<DockManager>(platform);
        platform.scheduler().advance(10);
    }

    FakePlatform platform;
    std::unique_ptr<DockManager> manager;
};

/// One movement that touches no dock: what every motion anywhere on the desktop costs.
void movementOutsideEveryDock(benchmark::State& state) {
    ThreeScreens desktop;
    double x = 0;
    for (auto _ : state) {
        x = x > 7000 ? 0 : x + 1;
        desktop.platform.pointer().moveTo(QPointF(x, 300));
    }
}
BENCHMARK(movementOutsideEveryDock);

/// One movement in the room that a dock keeps for labels: inside its window, outside of its zone.
void movementOverLabelRoom(benchmark::State& state) {
    ThreeScreens desktop;
    const QRect frame = desktop.manager->panels().begin()->second->frame();
    double x = 0;
    for (auto _ : state) {
        x = x > frame.width() - 2 ? 0 : x + 1;
        desktop.platform.pointer().moveTo(QPointF(frame.left() + x, frame.top() + 5));
    }
}
BENCHMARK(movementOverLabelRoom);

/// One movement on a dock: layout, hit test and the new scene, without painting.
void movementInsideADock(benchmark::State& state) {
    ThreeScreens desktop;
    const QRect frame = desktop.manager->panels().begin()->second->frame();
    double x = 0;
    for (auto _ : state) {
        x = x > frame.width() - 200 ? 0 : x + 1;
        desktop.platform.pointer().moveTo(QPointF(frame.left() + 100 + x, frame.bottom() - 30));
    }
}
BENCHMARK(movementInsideADock);

} // namespace
} // namespace quillary
