#include "app/DockManager.h"
#include "app/DockModel.h"
#include "app/view/DockPainter.h"
#include "app/view/DockSceneBuilder.h"
#include "app/view/IconCache.h"
#include "app/view/IconSprites.h"
#include "app/view/Plates.h"
#include "tests/fake/FakePlatform.h"

#include <QPainter>
#include <QPalette>

#include <benchmark/benchmark.h>

#include <cmath>

namespace quillary {
namespace {

constexpr int iconCount = 20;

/// One whole frame of a dock of 20 icons of 48 points, the pointer at another place in each: no damage is
/// saved.
void frame(benchmark::State& state, bool magnified) {
    const double ratio = static_cast<double>(state.range(0));
    test::FakePlatform platform;
    std::vector<std::string> items;
    items.reserve(iconCount);
    for (int i = 0; i < iconCount; ++i) {
        items.push_back("/Applications/Application number " + std::to_string(i) + ".app");
    }
    platform.systemDock().pinned = items;
    platform.screens().connected = {test::screenNamed("SCREEN", QRectF(0, 0, 2560, 1440))};
    DockManager manager(platform);
    const DockModel& model = *manager.models()[0];
    const DockGeometry geometry = model.geometry(model.cells());

    IconSprites sprites(std::make_shared<IconCache>(platform.workspace()));
    Plates plates;
    const Appearance appearance = Appearance::of(QPalette(), Blending::translucent);
    sprites.setLook(IconSprites::Look::of(geometry, appearance, ratio));
    QImage target((geometry.panelSize() * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    target.setDevicePixelRatio(ratio);

    DockSceneState sceneState;
    sceneState.magnified = magnified ? 1 : 0;
    sceneState.labelText = [](const std::string&) { return QStringLiteral("Application"); };
    sceneState.textWidth = [](const QString&) { return 70.0; };
    sceneState.exists = [](const std::string&) { return true; };
    double along = geometry.rowOffset();
    for (auto _ : state) {
        along = along > geometry.rowOffset() + geometry.restLen ? geometry.rowOffset() : along + 3;
        if (magnified) {
            sceneState.mouseAxis = along;
        }
        const DockScene scene = buildDockScene(model, sceneState);
        target.fill(Qt::transparent);
        QPainter painter(&target);
        DockPainter(painter, appearance, sprites, plates).draw(scene);
    }
}

void frameAtRest(benchmark::State& state) {
    frame(state, false);
}
BENCHMARK(frameAtRest)->ArgName("scale")->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

void frameMagnified(benchmark::State& state) {
    frame(state, true);
}
BENCHMARK(frameMagnified)->ArgName("scale")->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace quillary
