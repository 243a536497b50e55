#include "app/DockManager.h"
#include "app/DockModel.h"
#include "app/view/DockPainter.h"
#include "app/view/DockSceneBuilder.h"
#include "app/view/IconCache.h"
#include "app/view/IconSprites.h"
#include "app/view/LabelText.h"
#include "app/view/PixelFit.h"
#include "app/view/Plates.h"
#include "tests/fake/FakePlatform.h"

#include <QPainter>
#include <QPalette>

#include <benchmark/benchmark.h>

#include <memory>
#include <utility>

namespace quillary {
namespace {

constexpr int iconCount = 20;
constexpr double megabyte = 1 << 20;

/// A dock of 20 icons of 48 points at the bottom of a large screen, and what it takes to paint it.
class Dock {
public:
    Dock(DockStyle style, double deviceRatio) : ratio(deviceRatio) {
        std::vector<std::string> items;
        items.reserve(iconCount);
        for (int i = 0; i < iconCount; ++i) {
            items.push_back("/Applications/Application number " + std::to_string(i) + ".app");
        }
        platform.systemDock().pinned = items;
        platform.screens().connected = {test::screenNamed("SCREEN", QRectF(0, 0, 2560, 1440))};
        manager = std::make_unique<DockManager>(platform);
        manager->update(model().key, [style](DockConfig& config) { config.style = style; });
        contents = std::make_unique<DockContents>(DockContents::of(model(), platform.files()));
        const DockGeometry& geometry = contents->row.geometry;
        sprites = std::make_unique<IconSprites>(std::make_shared<IconCache>(platform.icons()));
        sprites->setLook(IconSprites::Look::of(geometry, appearance, ratio));
        target = QImage((geometry.panelSize() * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
        target.setDevicePixelRatio(ratio);
        from = geometry.rowOffset();
        to = from + geometry.restLen;
        along = from;
        texts.label = [](const std::string&) { return QStringLiteral("Application"); };
        texts.labelWidth = [](const QString&) { return 70.0; };
    }

    void magnify() { state.magnified = 1; }
    /// Moves the pointer on, from one end of the row to the other.
    void movePointer() {
        along = along > to ? from : along + 3;
        state.mouseAxis = along;
    }
    [[nodiscard]] DockScene scene() const {
        return fittedToPixels(buildDockScene(*contents, state, texts), {.ratio = ratio});
    }
    /// Paints what lies in these points of the panel.
    void paint(const DockScene& scene, const QRect& part) {
        QPainter painter(&target);
        painter.setClipRect(part);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(part, Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        DockPainter(painter, appearance, *sprites, plates, labelText).draw(scene);
    }
    [[nodiscard]] const DockModel& model() const { return *manager->models()[0]; }
    [[nodiscard]] QRect everything() const { return {QPoint(), target.deviceIndependentSize().toSize()}; }
    [[nodiscard]] std::size_t spriteBytes() const { return sprites->bytes(); }

private:
    test::FakePlatform platform;
    std::unique_ptr<DockManager> manager;
    double ratio;
    const Appearance appearance = Appearance::of(QPalette(), Blending::translucent);
    std::unique_ptr<IconSprites> sprites;
    Plates plates;
    LabelText labelText;
    QImage target;
    std::unique_ptr<DockContents> contents;
    DockSceneState state;
    DockTexts texts;
    double from = 0, to = 0, along = 0;
};

DockStyle styleOf(const benchmark::State& state) {
    return rawCases(DockStyle{}).at(static_cast<std::size_t>(state.range(0))).value;
}

void everyStyleAndScale(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"style", "scale"})->Unit(benchmark::kMicrosecond);
    for (int style = 0; style < static_cast<int>(rawCases(DockStyle{}).size()); ++style) {
        for (const int scale : {1, 2}) {
            bench->Args({style, scale});
        }
    }
}

void frameAtRest(benchmark::State& state) {
    Dock dock(styleOf(state), static_cast<double>(state.range(1)));
    state.SetLabel(std::string(rawValue(styleOf(state))));
    for (auto _ : state) {
        dock.paint(dock.scene(), dock.everything());
    }
}
BENCHMARK(frameAtRest)->Apply(everyStyleAndScale);

/// One whole frame, the pointer at another place in each: no damage is saved.
void frameMagnified(benchmark::State& state) {
    Dock dock(styleOf(state), static_cast<double>(state.range(1)));
    state.SetLabel(std::string(rawValue(styleOf(state))));
    dock.magnify();
    for (auto _ : state) {
        dock.movePointer();
        dock.paint(dock.scene(), dock.everything());
    }
}
BENCHMARK(frameMagnified)->Apply(everyStyleAndScale);

/// One frame of a sweep as the program paints it: what changed since the last one. "damage" is the share of
/// the panel, "sprites" what the rendered icons take in the end.
void frameOfASweep(benchmark::State& state) {
    Dock dock(styleOf(state), static_cast<double>(state.range(1)));
    state.SetLabel(std::string(rawValue(styleOf(state))));
    dock.magnify();
    dock.movePointer();
    DockScene before = dock.scene();
    double damaged = 0;
    for (auto _ : state) {
        dock.movePointer();
        DockScene after = dock.scene();
        const QRect damage = DockScene::damage(before, after).boundingRect();
        dock.paint(after, damage);
        damaged += static_cast<double>(damage.width()) * damage.height();
        before = std::move(after);
    }
    const QSize panel = dock.everything().size();
    state.counters["damage"] = benchmark::Counter(
        damaged / (static_cast<double>(panel.width()) * panel.height()), benchmark::Counter::kAvgIterations);
    state.counters["sprites MiB"] = static_cast<double>(dock.spriteBytes()) / megabyte;
}
BENCHMARK(frameOfASweep)->Apply(everyStyleAndScale);

} // namespace
} // namespace quillary
