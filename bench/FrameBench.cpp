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
    Dock(DockStyle style, double deviceRatio) : m_ratio(deviceRatio) {
        std::vector<std::string> items;
        items.reserve(iconCount);
        for (int i = 0; i < iconCount; ++i) {
            items.push_back("/Applications/Application number " + std::to_string(i) + ".app");
        }
        m_platform.systemDock().pinned = items;
        m_platform.screens().connected = {test::screenNamed("SCREEN", QRectF(0, 0, 2560, 1440))};
        m_manager = std::make_unique<DockManager>(m_platform);
        m_manager->update(model().key, [style](DockConfig& config) { config.style = style; });
        m_contents = std::make_unique<DockContents>(DockContents::of(model(), m_platform.files()));
        const DockGeometry& geometry = m_contents->row.geometry;
        m_sprites = std::make_unique<IconSprites>(std::make_shared<IconCache>(m_platform.icons()));
        m_sprites->setLook(IconSprites::Look::of(geometry, m_appearance, m_ratio));
        m_target = QImage((geometry.panelSize() * m_ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
        m_target.setDevicePixelRatio(m_ratio);
        m_from = geometry.rowOffset();
        m_to = m_from + geometry.restLen;
        m_along = m_from;
        m_texts.label = [](const std::string&) { return QStringLiteral("Application"); };
        m_texts.labelWidth = [](const QString&) { return 70.0; };
    }

    void magnify() { m_state.magnified = 1; }
    /// Moves the pointer on, from one end of the row to the other.
    void movePointer() {
        m_along = m_along > m_to ? m_from : m_along + 3;
        m_state.mouseAxis = m_along;
    }
    [[nodiscard]] DockScene scene() const {
        return fittedToPixels(buildDockScene(*m_contents, m_state, m_texts), {.ratio = m_ratio});
    }
    /// Paints what lies in these points of the panel.
    void paint(const DockScene& scene, const QRect& part) {
        QPainter painter(&m_target);
        painter.setClipRect(part);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(part, Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        DockPainter(painter, m_appearance, *m_sprites, m_plates, m_labelText).draw(scene);
    }
    [[nodiscard]] const DockModel& model() const { return *m_manager->models()[0]; }
    [[nodiscard]] QRect everything() const { return {QPoint(), m_target.deviceIndependentSize().toSize()}; }
    [[nodiscard]] std::size_t spriteBytes() const { return m_sprites->bytes(); }

private:
    test::FakePlatform m_platform;
    std::unique_ptr<DockManager> m_manager;
    double m_ratio;
    const Appearance m_appearance = Appearance::of(QPalette(), Blending::translucent);
    std::unique_ptr<IconSprites> m_sprites;
    Plates m_plates;
    LabelText m_labelText;
    QImage m_target;
    std::unique_ptr<DockContents> m_contents;
    DockSceneState m_state;
    DockTexts m_texts;
    double m_from = 0, m_to = 0, m_along = 0;
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
