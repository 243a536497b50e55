#include "app/settings/MiniatureDock.h"

#include "app/DockModel.h"
#include "app/MemoryMonitor.h"
#include "app/RunningApps.h"
#include "app/view/Appearance.h"
#include "app/view/DockPainter.h"
#include "app/view/DockSceneBuilder.h"
#include "app/view/IconCache.h"
#include "app/view/IconSprites.h"
#include "app/view/LabelText.h"
#include "app/view/Plates.h"

#include <QPainter>

#include <algorithm>

namespace quillary {

namespace {

// Longer than four items need, so that they keep their size.
constexpr double room = 1000;

// A dock of the usual size would have a background too thin to tell one from another when made this small.
constexpr double fullItemSide = 28;

// Drawn larger and then made smaller: whole pixels are too coarse for gaps this small.
constexpr double detail = 4;

// A full square would cover the disc behind it, which pictures of applications with their clear rims do not.
constexpr double shareOnDisc = 0.8;

DockConfig configuration(DockStyle style) {
    DockConfig config({}, {}, MiniatureWorkspace::items());
    config.style = style;
    config.magnification = Magnification::off;
    config.iconSize = fullItemSide;
    return config;
}

} // namespace

MiniatureDock::MiniatureDock(DockStyle style, Platform& platform, std::shared_ptr<MemoryMonitor> memory)
    : squareShare(style == DockStyle::bubbles ? shareOnDisc : 1),
      workspace(squareShare),
      icons(std::make_shared<IconCache>(workspace)),
      model(std::make_unique<DockModel>(std::string(), configuration(style), nullptr,
                                        std::make_shared<RunningApps>(workspace), std::move(memory),
                                        platform)) {
    model->setMaxLength(room);
}

MiniatureDock::~MiniatureDock() = default;

QImage MiniatureDock::picture(QSizeF size, double ratio, const QPalette& palette) {
    const DockGeometry geometry = model->geometry(model->cells());
    DockSceneState state;
    state.exists = [](const std::string&) { return true; };
    const DockScene scene = buildDockScene(*model, state);

    const double reduction = itemSide / (geometry.size * squareShare);
    const double fine = ratio * detail;
    QImage image((size * fine).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(fine * reduction);
    const Appearance appearance = Appearance::of(palette, Blending::translucent);
    IconSprites sprites(icons);
    sprites.setLook(IconSprites::Look::of(geometry, appearance, fine * reduction));
    Plates plates;
    LabelText labelText;
    QPainter painter(&image);
    // The toolkit follows ratios from 1 on by itself.
    const double rest = std::min(fine * reduction, 1.0);
    painter.scale(rest, rest);
    const QSizeF seen = size / reduction;
    DockPainter(painter, appearance, sprites, plates, labelText)
        .draw(scene,
              {(seen.width() - scene.panelSize.width()) / 2, seen.height() - scene.panelSize.height()});
    painter.end();
    QImage small = image.scaled((size * ratio).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    small.setDevicePixelRatio(ratio);
    return small;
}

} // namespace quillary
