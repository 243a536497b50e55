#include "app/view/DockView.h"

#include "app/DisplayName.h"
#include "app/DockModel.h"
#include "app/MemoryMonitor.h"
#include "app/RunningApps.h"
#include "app/view/BlurRegion.h"
#include "app/view/DockFonts.h"
#include "app/view/DockPainter.h"
#include "app/view/IconCache.h"
#include "app/view/PixelFit.h"
#include "app/view/drag/ItemDrag.h"
#include "platform/FileFacts.h"
#include "platform/PanelWindow.h"
#include "platform/Platform.h"
#include "platform/Scheduler.h"

#include <QBitmap>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillary {

namespace {

constexpr double crossingDuration = 0.18;
constexpr double hiddenResponse = 0.32;
constexpr double hiddenDamping = 0.82;
constexpr double defaultRefreshRate = 60;
/// Names are cut here for labels; whole novels would be laid out at every movement.
constexpr qsizetype longestName = 200;

} // namespace

DockView::DockView(std::shared_ptr<DockModel> dock, std::shared_ptr<IconCache> iconCache, Platform& system)
    : startDrag(dragItem),
      model(std::move(dock)),
      icons(std::move(iconCache)),
      platform(system),
      sprites(icons),
      labelMetrics(DockFonts::label()),
      contents(DockContents::of(*model, platform.files())),
      texts(makeTexts()),
      magnified(crossingDuration, 0),
      hidden(hiddenResponse, hiddenDamping, model->hidden() ? 1 : 0),
      drag(model, platform) {
    setAcceptDrops(true);
    const auto redraw = [this] { refresh(Contents::readAgain); };
    const auto rearrange = [this] { refresh(Contents::readAgain, Movement::fromWhatIsSeen); };
    connect(model.get(), &DockModel::rowChanged, this, rearrange);
    connect(model.get(), &DockModel::showMemoryChanged, this, redraw);
    connect(model.get(), &DockModel::mouseChanged, this, &DockView::followMouse);
    connect(model.get(), &DockModel::bouncingChanged, this, &DockView::followLaunching);
    connect(model.get(), &DockModel::hiddenChanged, this, &DockView::followHidden);
    connect(model->running.get(), &RunningApps::activePathChanged, this, redraw);
    connect(model->memory.get(), &MemoryMonitor::statsChanged, this, redraw);
    connect(model->memory.get(), &MemoryMonitor::byAppChanged, this, redraw);
    refresh(Contents::asKnown);
}

DockView::~DockView() = default;

void DockView::attach(PanelWindow& panelWindow) {
    window = &panelWindow;
    connect(window, &PanelWindow::compositedChanged, this, [this] {
        updateShape();
        updateBlur();
        update();
    });
}

void DockView::settle() {
    hidden.jumpTo(model->hidden() ? 1 : 0);
    motion.clear();
    refresh(Contents::readAgain);
}

void DockView::followMouse() {
    // A program that dies while it drags says no goodbye; its drag is over when the pointer leaves.
    if (!model->mouse()) {
        drag.clearTarget();
    }
    magnified.moveTo(model->mouse() ? 1 : 0, platform.scheduler().now());
    refresh(Contents::asKnown);
}

void DockView::followHidden() {
    hidden.moveTo(model->hidden() ? 1 : 0, platform.scheduler().now());
    refresh(Contents::readAgain);
}

void DockView::followLaunching() {
    contents.launching = model->bouncing();
    refresh(Contents::asKnown);
}

bool DockView::moving(double now) const {
    return !magnified.settled(now) || !hidden.settled(now) || !press.settled(now) || !motion.settled(now) ||
           (!contents.launching.empty() && shown.opacity > 0);
}

DockSceneState DockView::state(double now) {
    if (const auto mouse = model->mouse()) {
        lastAxis = contents.row.geometry.along(*mouse);
    } else if (magnified.value(now) <= 0) {
        lastAxis.reset();
    }
    return {.mouseAxis = lastAxis,
            .magnified = magnified.value(now),
            .hidden = hidden.settled(now) ? hidden.target() : hidden.value(now),
            .dropTargeted = drag.target() && !drag.target()->path,
            .targetedPath = drag.target() ? drag.target()->path : std::nullopt,
            .pressedPath = press.path(),
            .pressed = press.amount(now),
            .time = now};
}

DockTexts DockView::makeTexts() {
    return {.label = [this](const std::string& path) { return labelText(path); },
            .labelWidth = [this](const QString& text) { return labelWidth(text); },
            .pillSize =
                [](const QString& text, double fontSize) {
                    const QFontMetricsF metrics(DockFonts::pill(fontSize));
                    return QSizeF(metrics.horizontalAdvance(text), metrics.height());
                }};
}

void DockView::refresh(Contents reading, Movement movement) {
    if (reading == Contents::readAgain) {
        contents = DockContents::of(*model, platform.files());
        labels.clear();
    }
    const double now = platform.scheduler().now();
    DockScene next = buildDockScene(contents, state(now), texts);
    if (movement == Movement::fromWhatIsSeen) {
        motion.retarget(shown, next, now);
    }
    motion.apply(next, now);
    setScene(std::move(next));
    if (!moving(now)) {
        frameWork.reset();
    } else if (!frameWork) {
        const double rate = screen() != nullptr ? screen()->refreshRate() : defaultRefreshRate;
        frameWork = platform.scheduler().after(1 / std::max(rate, 1.0), [this] { frame(); });
    }
}

void DockView::frame() {
    frameWork.reset();
    refresh(Contents::asKnown);
}

void DockView::setScene(DockScene next) {
    const QPointF origin = contents.row.geometry.frameOrigin();
    const PixelGrid pixels{.origin = origin, .ratio = devicePixelRatioF()};
    DockScene onPixels = fittedToPixels(next, pixels);
    const QRegion damage = DockScene::damage(drawn, onPixels);
    grid = pixels;
    shown = std::move(next);
    drawn = std::move(onPixels);
    if (!damage.isEmpty()) {
        updateShape();
        updateBlur();
        // One rectangle: the toolkit clips several pixel row by pixel row, on threads that cost more than
        // they paint.
        update(damage.boundingRect().translated(origin.toPoint()));
    }
}

void DockView::updateShape() {
    if (window == nullptr || window->composited()) {
        return;
    }
    if (shown.opacity <= 0) {
        window->setVisibleShape({});
        return;
    }
    QImage picture(contents.row.geometry.frameSize(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(painter);
    painter.end();
    window->setVisibleShape(QRegion(QBitmap::fromImage(picture.createAlphaMask(Qt::ThresholdDither))));
}

void DockView::updateBlur() {
    if (window != nullptr && window->blursBehind()) {
        const QPointF origin = contents.row.geometry.frameOrigin();
        window->setBlurRegion(blurRegion(shown).translated(origin.toPoint()));
    }
}

void DockView::paint(QPainter& painter) {
    const DockGeometry& geometry = contents.row.geometry;
    const double ratio = painter.device()->devicePixelRatioF();
    const Appearance look = appearance();
    sprites.setLook(IconSprites::Look::of(geometry, look, ratio));
    const QPointF origin = geometry.frameOrigin();
    // Pictures are taken at other ratios too.
    const PixelGrid wanted{.origin = origin, .ratio = ratio};
    DockPainter painting(painter, look, sprites, plates, renderedLabel);
    if (wanted == grid) {
        painting.draw(drawn, origin);
    } else {
        painting.draw(fittedToPixels(shown, wanted), origin);
    }
}

QString DockView::labelText(const std::string& path) {
    const auto known = labels.find(path);
    if (known != labels.end()) {
        return known->second;
    }
    QString text = QString::fromStdString(displayName(platform.files(), path)).left(longestName);
    std::ranges::replace_if(
        text, [](QChar letter) { return letter.category() == QChar::Other_Control; }, u' ');
    const auto memory = contents.memory.find(path);
    if (memory != contents.memory.end()) {
        text += QStringLiteral(" · ") + QString::fromStdString(RamBadges::text(memory->second.bytes));
    }
    return labels.emplace(path, text).first->second;
}

double DockView::labelWidth(const QString& text) {
    if (text != measuredText) {
        measuredText = text;
        measuredWidth = labelMetrics.horizontalAdvance(text);
    }
    return measuredWidth;
}

Appearance DockView::appearance() const {
    const bool blends = window == nullptr || window->composited();
    const bool blurs = blends && window != nullptr && window->blursBehind();
    return Appearance::of(palette(), blurs    ? Blending::blurred
                                     : blends ? Blending::translucent
                                              : Blending::opaque);
}

void DockView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setClipRegion(event->region());
    paint(painter);
}

void DockView::mousePressEvent(QMouseEvent* event) {
    const double now = platform.scheduler().now();
    if (event->button() == Qt::LeftButton) {
        press.down(event->position(), pathAt(event->position()), now);
        refresh(Contents::asKnown);
    } else if (event->button() == Qt::RightButton) {
        press.cancel(now);
        refresh(Contents::asKnown);
        Q_EMIT menuRequested(event->position());
    }
}

void DockView::movePointer(QPointF location) {
    if (press.isDown()) {
        movePress(mapFromGlobal(location));
    }
}

void DockView::mouseMoveEvent(QMouseEvent* event) {
    movePress(event->position());
}

void DockView::movePress(QPointF position) {
    if (const auto start = press.move(position, platform.scheduler().now())) {
        const auto path = pathAt(*start);
        refresh(Contents::asKnown);
        if (path) {
            beginDrag(*path);
        }
    }
}

void DockView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const auto click = press.up(event->position(), platform.scheduler().now());
    refresh(Contents::asKnown);
    if (const auto path = click ? pathAt(*click) : std::nullopt) {
        model->open(*path);
    }
}

// Not in the event itself: the drag runs a loop of its own, during which the dock may go.
void DockView::beginDrag(const std::string& path) {
    dragWork = platform.scheduler().after(
        0, [start = startDrag, path, picture = dragPicture(path)] { start(path, picture); });
}

QImage DockView::dragPicture(const std::string& path) {
    const auto icon = std::ranges::find(shown.icons, path, &DockScene::Icon::path);
    if (icon == shown.icons.end()) {
        return {};
    }
    const double ratio = devicePixelRatioF();
    const int side = std::max(1, static_cast<int>(std::lround(icon->rect.width() * ratio)));
    QImage picture = icons->icon(path).pixmap(QSize(side, side), 1.0).toImage();
    picture.setDevicePixelRatio(ratio);
    return picture;
}

void DockView::dragEnterEvent(QDragEnterEvent* event) {
    drag.enter(event->mimeData());
    hover(*event);
}

void DockView::dragMoveEvent(QDragMoveEvent* event) {
    hover(*event);
}

void DockView::hover(QDropEvent& event) {
    const auto before = drag.target();
    drag.hover(event, shown, scenePoint(event.position()));
    if (drag.target() != before) {
        refresh(Contents::asKnown);
    }
}

void DockView::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
    drag.leave();
    refresh(Contents::asKnown);
}

void DockView::dropEvent(QDropEvent* event) {
    drag.drop(*event, shown, scenePoint(event->position()));
    refresh(Contents::asKnown);
}

// What is on the screen decides, at the place where the button went down: the pointer may be elsewhere by
// now.
std::optional<std::string> DockView::pathAt(QPointF position) const {
    const DockScene::Icon* icon = shown.iconAt(scenePoint(position), DockScene::Reach::column);
    return icon != nullptr ? std::optional(icon->path) : std::nullopt;
}

QPointF DockView::scenePoint(QPointF position) const {
    return position - contents.row.geometry.frameOrigin();
}

void DockView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        labelMetrics = QFontMetricsF(DockFonts::label());
        measuredText.clear();
        measuredWidth = 0;
        refresh(Contents::readAgain);
        update();
    }
    QWidget::changeEvent(event);
}

void DockView::closeEvent(QCloseEvent* event) {
    // A dock goes when its screen does or it is switched off, not because a pager closes all windows.
    event->setAccepted(!event->spontaneous());
}

} // namespace quillary
