#pragma once

#include "app/view/DockView.h"
#include "app/view/IconCache.h"
#include "tests/app/Fixture.h"

#include <memory>
#include <string>

namespace quillary::test {

inline const std::string mail = "/Applications/Mail.app";
inline const std::string notes = "/Applications/Notes.app";

/// A second view on LEFT's model, beside that of the dock's panel.
class DockViewTest : public Desktop {
protected:
    void SetUp() override {
        startWith({mail, notes});
        configure([](DockConfig& config) { config.magnification = Magnification::big; });
        turn();
        const auto dock = manager->models()[0];
        view = std::make_unique<DockView>(dock, std::make_shared<IconCache>(platform.icons()), platform);
        view->attach(shownIn);
        view->resize(dock->geometry(dock->cells()).panelSize().toSize());
    }
    void wait(double seconds) { platform.scheduler().advance(seconds); }
    [[nodiscard]] double firstWidth() const { return view->scene().icons.at(0).rect.width(); }
    [[nodiscard]] QImage picture() const {
        QImage image(view->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        view->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image;
    }
    static void expectEqualOutside(const QRegion& damage, const QImage& before, const QImage& after) {
        for (int y = 0; y < after.height(); ++y) {
            for (int x = 0; x < after.width(); ++x) {
                if (!damage.contains(QPoint(x, y))) {
                    ASSERT_EQ(before.pixel(x, y), after.pixel(x, y)) << x << " " << y;
                }
            }
        }
    }

    FakePanelWindow shownIn;
    std::unique_ptr<DockView> view;
    // The first icon's resting centre along, and the middle of the row's depth.
    const QPointF onFirst{111, 125};
};

} // namespace quillary::test
