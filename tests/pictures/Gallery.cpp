#include "tests/pictures/Gallery.h"

#include "app/DockManager.h"
#include "app/DockModel.h"
#include "app/MemoryMonitor.h"
#include "app/view/Appearance.h"
#include "app/view/DockFonts.h"
#include "app/view/DockPainter.h"
#include "app/view/DockSceneBuilder.h"
#include "app/view/IconCache.h"
#include "app/view/LabelText.h"
#include "app/view/Plates.h"
#include "tests/fake/FakePlatform.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPalette>

#include <cmath>
#include <cstdint>

namespace quillary::test {

namespace {

constexpr std::uint64_t gibibyte = std::uint64_t{1} << 30;

struct Application {
    const char* path;
    QColor top, bottom;
    enum class Glyph { envelope, circle, bars, folder } glyph;
};

const Application applications[] = {
    {"/Applications/Mail.app", {90, 180, 255}, {20, 100, 235}, Application::Glyph::envelope},
    {"/Applications/Music.app", {255, 120, 150}, {240, 50, 80}, Application::Glyph::circle},
    {"/Applications/Numbers.app", {110, 225, 120}, {30, 170, 70}, Application::Glyph::bars},
    {"/Users/ada/Documents", {130, 205, 250}, {80, 165, 230}, Application::Glyph::folder},
    {"/Applications/Gone.app", {200, 200, 205}, {140, 140, 150}, Application::Glyph::circle},
    {"/Applications/Terminal.app", {80, 84, 92}, {30, 32, 36}, Application::Glyph::bars},
    {"/Applications/Browser.app", {255, 190, 80}, {250, 130, 30}, Application::Glyph::circle},
};

void drawGlyph(QPainter& painter, Application::Glyph glyph) {
    painter.setBrush(Qt::white);
    switch (glyph) {
    case Application::Glyph::envelope:
        painter.drawRoundedRect(QRectF(56, 80, 144, 96), 10, 10);
        painter.setPen(QPen(QColor(60, 130, 240), 8));
        painter.drawPolyline(QPolygonF({{60, 86}, {128, 136}, {196, 86}}));
        break;
    case Application::Glyph::circle:
        painter.drawEllipse(QRectF(72, 72, 112, 112));
        break;
    case Application::Glyph::bars:
        painter.drawRect(QRectF(70, 130, 28, 50));
        painter.drawRect(QRectF(114, 90, 28, 90));
        painter.drawRect(QRectF(158, 110, 28, 70));
        break;
    case Application::Glyph::folder:
        break;
    }
}

QIcon iconOf(const Application& application) {
    QPixmap pixmap(256, 256);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient body(0, 20, 0, 236);
    body.setColorAt(0, application.top);
    body.setColorAt(1, application.bottom);
    painter.setPen(Qt::NoPen);
    painter.setBrush(body);
    if (application.glyph == Application::Glyph::folder) {
        painter.drawRoundedRect(QRectF(16, 44, 110, 60), 16, 16);
        painter.drawRoundedRect(QRectF(16, 64, 224, 156), 18, 18);
    } else {
        painter.drawRoundedRect(QRectF(20, 20, 216, 216), 50, 50);
    }
    drawGlyph(painter, application.glyph);
    painter.end();
    return {pixmap};
}

// Flat parts, so that the pictures are small files.
void drawWallpaper(QPainter& painter, const QRectF& area) {
    const QColor bands[] = {{24, 27, 36}, {70, 110, 170}, {250, 249, 246}, {190, 90, 70}};
    const double width = area.width() / std::size(bands);
    double x = area.left();
    for (const QColor& band : bands) {
        painter.fillRect(QRectF(x, area.top(), width + 1, area.height()), band);
        x += width;
    }
    constexpr int stripe = 24;
    for (int below = 2; below < area.height(); below += stripe) {
        painter.fillRect(QRectF(area.left(), area.bottom() - below - 4, area.width(), 4),
                         QColor(255, 255, 255, 60));
    }
}

QPalette paletteOf(Shade shade) {
    QPalette palette;
    palette.setColor(QPalette::Window, shade == Shade::dark ? QColor(32, 32, 36) : QColor(240, 240, 243));
    palette.setColor(QPalette::Highlight, QColor(0, 122, 255));
    return palette;
}

QFont fixedFont(QFont font) {
    font.setFamily(QStringLiteral("DejaVu Sans"));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

void omit(DockScene& scene, Omission omission) {
    switch (omission) {
    case Omission::nothing:
        break;
    case Omission::backgroundShadow:
        scene.background.shadow = {};
        break;
    case Omission::iconShadow:
        // The sprites differ by the style alone.
        scene.style = scene.style == DockStyle::minimal ? DockStyle::glass : DockStyle::minimal;
        break;
    case Omission::dot:
        scene.icons.front().dot.reset();
        break;
    case Omission::corner:
        scene.background.cornerRadius = 0;
        break;
    case Omission::border:
        scene.background.borderWidth = 0;
        break;
    case Omission::pill:
        for (auto& icon : scene.icons) {
            icon.pill.reset();
        }
        break;
    }
}

/// A dock with everything on it that a dock can show.
class Stage {
public:
    explicit Stage(const Exhibit& exhibit) : m_shown(exhibit) {
        std::vector<std::string> pinned;
        for (const Application& application : applications) {
            m_system.workspace().icons[application.path] = iconOf(application);
            pinned.emplace_back(application.path);
        }
        pinned.pop_back();
        pinned.pop_back();
        m_system.systemDock().pinned = pinned;
        m_system.workspace().missing.insert("/Applications/Gone.app");
        m_system.screens().connected = {screenNamed("SCREEN", QRectF(0, 0, 1200, 1000))};
        m_manager = std::make_unique<DockManager>(m_system);
        m_manager->update("KEY-SCREEN", [&exhibit](DockConfig& config) {
            config.style = exhibit.style;
            config.edge = exhibit.edge;
            config.magnification = exhibit.magnification;
            config.iconSize = exhibit.iconSize;
            if (exhibit.mood == Exhibit::Mood::empty) {
                config.items.clear();
                config.showRunning = false;
            }
        });
        for (const char* path : {"/Applications/Mail.app", "/Applications/Music.app",
                                 "/Applications/Terminal.app", "/Applications/Browser.app"}) {
            m_system.workspace().launch(path);
        }
        m_system.workspace().activate("/Applications/Mail.app");
        // Browser is the hog, Music is heavy.
        m_manager->memory->publish({.total = 8 * gibibyte}, {{"/Applications/Browser.app", 3 * gibibyte},
                                                             {"/Applications/Music.app", gibibyte}});
        m_system.scheduler().advance(2);
    }

    [[nodiscard]] const DockModel& model() const { return *m_manager->models().front(); }
    [[nodiscard]] IconSprites sprites() { return IconSprites(std::make_shared<IconCache>(m_system.icons())); }

    [[nodiscard]] DockScene scene() const {
        const QFontMetricsF labels(fixedFont(DockFonts::label()));
        const DockTexts texts{
            .label = [](const std::string&) { return QStringLiteral("Music · 1.0 GB"); },
            .labelWidth = [&labels](const QString& text) { return labels.horizontalAdvance(text); },
            .pillSize =
                [](const QString& text, double size) {
                    const QFontMetricsF metrics(fixedFont(DockFonts::pill()));
                    return QSizeF(metrics.horizontalAdvance(text), metrics.height()) * size /
                           DockFonts::pillSize;
                }};
        const DockContents contents = DockContents::of(model(), m_system.files());
        DockSceneState state;
        if (m_shown.mood == Exhibit::Mood::magnified) {
            const DockGeometry& geometry = contents.row.geometry;
            state.mouseAxis = geometry.rowOffset() + geometry.restCenters[1] + 5;
            state.magnified = 1;
        } else if (m_shown.mood == Exhibit::Mood::dragged) {
            state.dropTargeted = true;
            state.targetedItem = ItemId{"/Users/ada/Documents"};
            state.pressedItem = {"/Applications/Music.app"};
            state.pressed = 1;
        } else if (m_shown.mood == Exhibit::Mood::hiding) {
            state.hidden = 0.5;
        }
        return buildDockScene(contents, state, texts);
    }

private:
    Exhibit m_shown;
    FakePlatform m_system;
    std::unique_ptr<DockManager> m_manager;
};

void addEmptyDocks(std::vector<Exhibit>& all) {
    const Exhibit empty{.name = {}, .mood = Exhibit::Mood::empty};
    const auto add = [&all](Exhibit exhibit, const std::string& variant) {
        exhibit.name = "empty-";
        exhibit.name += variant;
        all.push_back(std::move(exhibit));
    };
    for (const DockEdge edge : allCases<DockEdge>()) {
        Exhibit at = empty;
        at.edge = edge;
        const std::string name(rawValue(edge));
        add(at, name);
        at.magnification = Magnification::off;
        add(at, name + "-off");
        at.iconSize = 20;
        add(at, name + "-off-small");
        at.iconSize = 80;
        add(at, name + "-off-large");
    }
    for (const DockStyle style : allCases<DockStyle>()) {
        Exhibit of = empty;
        of.style = style;
        if (style != DockStyle::glass) {
            add(of, std::string(rawValue(style)));
        }
    }
    Exhibit other = empty;
    other.shade = Shade::dark;
    add(other, "dark");
    other = empty;
    other.magnification = Magnification::off;
    other.scale = 2;
    add(other, "off-scale-2");
}

} // namespace

std::vector<Exhibit> exhibits() {
    std::vector<Exhibit> all;
    for (const DockStyle style : allCases<DockStyle>()) {
        const std::string name(rawValue(style));
        const Exhibit plain{.name = name, .style = style};
        const auto add = [&all, &name](Exhibit exhibit, const std::string& variant) {
            exhibit.name = name;
            exhibit.name += '-';
            exhibit.name += variant;
            all.push_back(std::move(exhibit));
        };
        for (const DockEdge edge : allCases<DockEdge>()) {
            Exhibit at = plain;
            at.edge = edge;
            add(at, std::string(rawValue(edge)));
        }
        Exhibit other = plain;
        other.scale = 1.5;
        add(other, "scale-1.5");
        other.scale = 2;
        add(other, "scale-2");
        other = plain;
        other.shade = Shade::dark;
        add(other, "dark");
        other.blending = Blending::blurred;
        add(other, "dark-blurred");
        other.shade = Shade::light;
        add(other, "blurred");
        other.blending = Blending::opaque;
        add(other, "opaque");
        other = plain;
        other.mood = Exhibit::Mood::magnified;
        add(other, "magnified");
        other.mood = Exhibit::Mood::dragged;
        add(other, "dragged");
        other.mood = Exhibit::Mood::hiding;
        add(other, "hiding");
    }
    addEmptyDocks(all);
    return all;
}

QImage picture(const Exhibit& exhibit, Omission omission) {
    Stage stage(exhibit);
    DockScene scene = stage.scene();
    omit(scene, omission);
    IconSprites sprites = stage.sprites();
    const DockGeometry geometry = stage.model().geometry(stage.model().cells());
    const Appearance appearance = Appearance::of(paletteOf(exhibit.shade), exhibit.blending);
    IconSprites::Look look = IconSprites::Look::of(geometry, appearance, exhibit.scale);
    if (omission == Omission::iconShadow) {
        look.shadow = {};
    }
    sprites.setLook(look);
    const QSizeF size(geometry.frameSize());
    QImage image((size * exhibit.scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(exhibit.scale);
    // At a fractional scale the last pixels are covered in part only.
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawWallpaper(painter, QRectF({}, size));
    Plates plates;
    LabelText labelText;
    DockPainter(painter, appearance, sprites, plates, labelText).draw(scene, geometry.frameOrigin());
    painter.end();
    return image.convertToFormat(QImage::Format_RGB32);
}

double difference(const QImage& one, const QImage& other) {
    if (one.size() != other.size()) {
        return 255;
    }
    constexpr int square = 4;
    double largest = 0;
    for (int top = 0; top + square <= one.height(); top += square) {
        for (int left = 0; left + square <= one.width(); left += square) {
            int red = 0;
            int green = 0;
            int blue = 0;
            for (int y = top; y < top + square; ++y) {
                for (int x = left; x < left + square; ++x) {
                    const QRgb a = one.pixel(x, y);
                    const QRgb b = other.pixel(x, y);
                    red += qRed(a) - qRed(b);
                    green += qGreen(a) - qGreen(b);
                    blue += qBlue(a) - qBlue(b);
                }
            }
            const int worst = std::max({std::abs(red), std::abs(green), std::abs(blue)});
            largest = std::max(largest, worst / static_cast<double>(square * square));
        }
    }
    return largest;
}

} // namespace quillary::test
