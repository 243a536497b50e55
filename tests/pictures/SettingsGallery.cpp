#include "tests/pictures/SettingsGallery.h"

#include "app/DockManager.h"
#include "tests/fake/FakePlatform.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPalette>
#include <QScrollArea>
#include <QScrollBar>

namespace quillary::test {

namespace {

QPalette paletteOf(Shade shade) {
    const bool dark = shade == Shade::dark;
    const QColor window = dark ? QColor(32, 32, 36) : QColor(240, 240, 243);
    QPalette palette(window);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Window, window);
        palette.setColor(group, QPalette::WindowText, dark ? QColor(236, 236, 240) : QColor(28, 28, 32));
        palette.setColor(group, QPalette::Highlight, QColor(0, 122, 255));
    }
    return palette;
}

void prepare(FakePlatform& system, DockManager& manager, const SettingsExhibit& exhibit) {
    system.bundle = {.shortVersion = "1.2", .build = "34"};
    manager.update("KEY-Built-in Display", [](DockConfig& config) {
        config.items.assign(12, {});
        config.iconSize = 52;
    });
    manager.update("KEY-DELL U2723QE", [&exhibit](DockConfig& config) {
        config.enabled = !exhibit.partlyOff;
        config.edge = DockEdge::left;
        config.style = DockStyle::shelf;
        config.magnification = Magnification::big;
        config.autoHide = true;
    });
}

/// The application's font, for as long as the picture is drawn.
class FontOf {
public:
    explicit FontOf(const SettingsExhibit& exhibit) : m_usual(QApplication::font()) {
        if (exhibit.points > 0) {
            QFont font = settingsFont();
            font.setPointSizeF(exhibit.points);
            QApplication::setFont(font);
        }
    }
    ~FontOf() { QApplication::setFont(m_usual); }
    FontOf(const FontOf&) = delete;
    FontOf& operator=(const FontOf&) = delete;

private:
    QFont m_usual;
};

} // namespace

std::vector<SettingsExhibit> settingsExhibits() {
    std::vector<SettingsExhibit> all;
    for (const Shade shade : {Shade::light, Shade::dark}) {
        const std::string name = shade == Shade::dark ? "dark" : "light";
        for (const auto& [scale, suffix] : {std::pair{1.0, ""}, {1.5, "-scale-1.5"}, {2.0, "-scale-2"}}) {
            all.push_back({.name = name + suffix, .shade = shade, .scale = scale});
        }
        all.push_back({.name = name + "-welcome", .shade = shade, .form = SettingsWindow::Form::welcome});
        all.push_back({.name = name + "-end", .shade = shade, .scrolled = true, .partlyOff = true});
        all.push_back({.name = name + "-focus", .shade = shade, .scale = 2, .tabs = 3});
    }
    for (const int points : {12, 16, 24}) {
        all.push_back({.name = "light-" + std::to_string(points) + "pt",
                       .form = SettingsWindow::Form::welcome,
                       .points = static_cast<double>(points),
                       .whole = true});
    }
    return all;
}

QFont settingsFont() {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(13);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QImage settingsPicture(const SettingsExhibit& exhibit) {
    const FontOf font(exhibit);
    QApplication::setPalette(paletteOf(exhibit.shade));
    FakePlatform system;
    system.screens().connected = {screenNamed("Built-in Display", QRectF(0, 0, 1280, 900)),
                                  screenNamed("DELL U2723QE", QRectF(1280, 0, 1280, 900))};
    DockManager manager(system);
    prepare(system, manager, exhibit);
    SettingsWindow settings(manager);
    settings.show(exhibit.form);
    QApplication::processEvents();
    auto& window = *qobject_cast<QScrollArea*>(settings.window());
    if (exhibit.whole) {
        window.resize(window.width(), window.widget()->height());
        QApplication::processEvents();
    }
    if (exhibit.scrolled) {
        window.verticalScrollBar()->setValue(window.verticalScrollBar()->maximum());
    }
    for (int press = 0; press < exhibit.tabs; ++press) {
        QWidget* receiver = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &window;
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QApplication::sendEvent(receiver, &key);
    }
    QImage image((QSizeF(window.size()) * exhibit.scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(exhibit.scale);
    window.render(&image);
    return image;
}

} // namespace quillary::test
