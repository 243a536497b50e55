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
/// Longer names are cut: the label's text is laid out while the pointer moves.
constexpr qsizetype longestName = 200;

} // namespace

DockView::DockView(std::shared_ptr<DockModel> model, std::shared_ptr<IconCache> icons, Platform& platform)
    : startDrag(dragItem),
      m_model(std::move(model)),
      m_icons(std::move(icons)),
      m_platform(platform),
      m_sprites(m_icons),
      m_labelMetrics(DockFonts::label()),
      m_contents(DockContents::of(*m_model, m_platform.files())),
      m_texts(makeTexts()),
      m_magnified(crossingDuration, 0),
      m_hidden(hiddenResponse, hiddenDamping, m_model->hidden() ? 1 : 0),
      m_drag(m_model, m_platform) {
    setAcceptDrops(true);
    const auto redraw = [this] { refresh(Contents::readAgain); };
    const auto rearrange = [this] { refresh(Contents::readAgain, Movement::fromWhatIsSeen); };
    connect(m_model.get(), &DockModel::rowChanged, this, rearrange);
    connect(m_model.get(), &DockModel::showMemoryChanged, this, redraw);
    connect(m_model.get(), &DockModel::mouseChanged, this, &DockView::followMouse);
    connect(m_model.get(), &DockModel::bouncingChanged, this, &DockView::followLaunching);
    connect(m_model.get(), &DockModel::hiddenChanged, this, &DockView::followHidden);
    connect(m_model->running.get(), &RunningApps::activePathChanged, this, redraw);
    connect(m_model->memory.get(), &MemoryMonitor::statsChanged, this, redraw);
    connect(m_model->memory.get(), &MemoryMonitor::byAppChanged, this, redraw);
    refresh(Contents::asKnown);
}

DockView::~DockView() = default;

void DockView::attach(PanelWindow& window) {
    m_window = &window;
    connect(m_window, &PanelWindow::compositedChanged, this, [this] {
        updateShape();
        updateBlur();
        update();
    });
}

void DockView::settle() {
    m_hidden.jumpTo(m_model->hidden() ? 1 : 0);
    m_motion.clear();
    refresh(Contents::readAgain);
}

void DockView::followMouse() {
    // A program that dies during its drag sends no leave event; its drag ends when the pointer leaves.
    if (!m_model->mouse()) {
        m_drag.clearTarget();
    }
    m_magnified.moveTo(m_model->mouse() ? 1 : 0, m_platform.scheduler().now());
    refresh(Contents::asKnown);
}

void DockView::followHidden() {
    m_hidden.moveTo(m_model->hidden() ? 1 : 0, m_platform.scheduler().now());
    refresh(Contents::readAgain);
}

void DockView::followLaunching() {
    m_contents.launching = m_model->bouncing();
    refresh(Contents::asKnown);
}

bool DockView::moving(double now) const {
    return !m_magnified.settled(now) || !m_hidden.settled(now) || !m_press.settled(now) ||
           !m_motion.settled(now) || (!m_contents.launching.empty() && m_scene.opacity > 0);
}

DockSceneState DockView::state(double now) {
    if (const auto mouse = m_model->mouse()) {
        m_mouseAxis = m_contents.row.geometry.along(*mouse);
    } else if (m_magnified.value(now) <= 0) {
        m_mouseAxis.reset();
    }
    return {.mouseAxis = m_mouseAxis,
            .magnified = m_magnified.value(now),
            .hidden = m_hidden.settled(now) ? m_hidden.target() : m_hidden.value(now),
            .dropTargeted = m_drag.target() && !m_drag.target()->item,
            .targetedItem = m_drag.target() ? m_drag.target()->item : std::nullopt,
            .pressedItem = m_press.item(),
            .pressed = m_press.amount(now),
            .time = now};
}

DockTexts DockView::makeTexts() {
    return {.label = [this](const std::string& path) { return labelText(path); },
            .labelWidth = [this](const QString& text) { return labelWidth(text); },
            .pillSize =
                [](const QString& text, double fontSize) {
                    const QFontMetricsF metrics(DockFonts::pill());
                    return QSizeF(metrics.horizontalAdvance(text), metrics.height()) * fontSize /
                           DockFonts::pillSize;
                }};
}

void DockView::refresh(Contents reading, Movement movement) {
    if (reading == Contents::readAgain) {
        m_contents = DockContents::of(*m_model, m_platform.files());
        m_labels.clear();
    }
    const double now = m_platform.scheduler().now();
    DockScene next = buildDockScene(m_contents, state(now), m_texts);
    if (movement == Movement::fromWhatIsSeen) {
        m_motion.retarget(m_scene, next, now);
    }
    m_motion.apply(next, now);
    setScene(std::move(next));
    if (!moving(now)) {
        m_frameWork.reset();
    } else if (!m_frameWork) {
        const double rate = screen() != nullptr ? screen()->refreshRate() : defaultRefreshRate;
        m_frameWork = m_platform.scheduler().after(1 / std::max(rate, 1.0), [this] { frame(); });
    }
}

void DockView::frame() {
    m_frameWork.reset();
    refresh(Contents::asKnown);
}

void DockView::setScene(DockScene next) {
    const QPointF origin = m_contents.row.geometry.frameOrigin();
    const PixelGrid pixels{.origin = origin, .ratio = devicePixelRatioF()};
    DockScene onPixels = fittedToPixels(next, pixels);
    const QRegion damage = DockScene::damage(m_drawn, onPixels);
    m_grid = pixels;
    m_scene = std::move(next);
    m_drawn = std::move(onPixels);
    if (!damage.isEmpty()) {
        updateShape();
        updateBlur();
        // One rectangle: the toolkit clips a region of several in each pixel row, on threads that cost more
        // than the painting.
        update(damage.boundingRect().translated(origin.toPoint()));
    }
}

void DockView::updateShape() {
    if (m_window == nullptr || m_window->composited()) {
        return;
    }
    if (m_scene.opacity <= 0) {
        m_window->setVisibleShape({});
        return;
    }
    QImage picture(m_contents.row.geometry.frameSize(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(painter);
    painter.end();
    m_window->setVisibleShape(QRegion(QBitmap::fromImage(picture.createAlphaMask(Qt::ThresholdDither))));
}

void DockView::updateBlur() {
    if (m_window != nullptr && m_window->blursBehind()) {
        const QPointF origin = m_contents.row.geometry.frameOrigin();
        m_window->setBlurRegion(blurRegion(m_scene).translated(origin.toPoint()));
    }
}

void DockView::paint(QPainter& painter) {
    const DockGeometry& geometry = m_contents.row.geometry;
    const double ratio = painter.device()->devicePixelRatioF();
    const Appearance look = appearance();
    m_sprites.setLook(IconSprites::Look::of(geometry, look, ratio));
    const QPointF origin = geometry.frameOrigin();
    // Pictures may be taken at other ratios than the screen's.
    const PixelGrid wanted{.origin = origin, .ratio = ratio};
    DockPainter painting(painter, look, m_sprites, m_plates, m_renderedLabel);
    if (wanted == m_grid) {
        painting.draw(m_drawn, origin);
    } else {
        painting.draw(fittedToPixels(m_scene, wanted), origin);
    }
}

QString DockView::labelText(const std::string& path) {
    const auto known = m_labels.find(path);
    if (known != m_labels.end()) {
        return known->second;
    }
    QString text = QString::fromStdString(displayName(m_platform.files(), path)).left(longestName);
    std::ranges::replace_if(
        text, [](QChar letter) { return letter.category() == QChar::Other_Control; }, u' ');
    const auto memory = m_contents.memory.find(path);
    if (memory != m_contents.memory.end()) {
        text += QStringLiteral(" · ") + QString::fromStdString(RamBadges::text(memory->second.bytes));
    }
    return m_labels.emplace(path, text).first->second;
}

double DockView::labelWidth(const QString& text) {
    if (text != m_measuredText) {
        m_measuredText = text;
        m_measuredWidth = m_labelMetrics.horizontalAdvance(text);
    }
    return m_measuredWidth;
}

Appearance DockView::appearance() const {
    const bool blends = m_window == nullptr || m_window->composited();
    const bool blurs = blends && m_window != nullptr && m_window->blursBehind();
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
    const double now = m_platform.scheduler().now();
    if (event->button() == Qt::LeftButton) {
        m_press.down(event->position(), itemAt(event->position()), now);
        refresh(Contents::asKnown);
    } else if (event->button() == Qt::RightButton) {
        m_press.cancel(now);
        refresh(Contents::asKnown);
        Q_EMIT menuRequested(event->position());
    }
}

void DockView::movePointer(QPointF location) {
    if (m_press.isDown()) {
        movePress(mapFromGlobal(location));
    }
}

void DockView::mouseMoveEvent(QMouseEvent* event) {
    movePress(event->position());
}

void DockView::movePress(QPointF position) {
    if (const auto start = m_press.move(position, m_platform.scheduler().now())) {
        const auto item = itemAt(*start);
        refresh(Contents::asKnown);
        if (item) {
            beginDrag(*item);
        }
    }
}

void DockView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const auto click = m_press.up(event->position(), m_platform.scheduler().now());
    refresh(Contents::asKnown);
    if (const auto item = click ? itemAt(*click) : std::nullopt) {
        m_model->open(item->path);
    }
}

// Deferred: the drag runs a nested event loop, in which the view may be destroyed.
void DockView::beginDrag(const ItemId& item) {
    m_dragWork = m_platform.scheduler().after(
        0, [start = startDrag, path = item.path, picture = dragPicture(item)] { start(path, picture); });
}

QImage DockView::dragPicture(const ItemId& item) {
    const auto icon =
        std::ranges::find_if(m_scene.icons, [&](const DockScene::Icon& shown) { return shown.is(item); });
    if (icon == m_scene.icons.end()) {
        return {};
    }
    const double ratio = devicePixelRatioF();
    const int side = std::max(1, static_cast<int>(std::lround(icon->rect.width() * ratio)));
    QImage picture = m_icons->icon(item.path).pixmap(QSize(side, side), 1.0).toImage();
    picture.setDevicePixelRatio(ratio);
    return picture;
}

void DockView::dragEnterEvent(QDragEnterEvent* event) {
    m_drag.enter(event->mimeData());
    hover(*event);
}

void DockView::dragMoveEvent(QDragMoveEvent* event) {
    hover(*event);
}

void DockView::hover(QDropEvent& event) {
    const auto before = m_drag.target();
    m_drag.hover(event, m_scene, scenePoint(event.position()));
    if (m_drag.target() != before) {
        refresh(Contents::asKnown);
    }
}

void DockView::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
    m_drag.leave();
    refresh(Contents::asKnown);
}

void DockView::dropEvent(QDropEvent* event) {
    m_drag.drop(*event, m_scene, scenePoint(event->position()));
    refresh(Contents::asKnown);
}

// Uses what is shown and where the button went down, as the pointer may have moved since.
std::optional<ItemId> DockView::itemAt(QPointF position) const {
    const DockScene::Icon* icon = m_scene.iconAt(scenePoint(position), DockScene::Reach::column);
    return icon != nullptr ? std::optional(icon->id()) : std::nullopt;
}

QPointF DockView::scenePoint(QPointF position) const {
    return position - m_contents.row.geometry.frameOrigin();
}

void DockView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        m_labelMetrics = QFontMetricsF(DockFonts::label());
        m_measuredText.clear();
        m_measuredWidth = 0;
        refresh(Contents::readAgain);
        update();
    }
    QWidget::changeEvent(event);
}

void DockView::closeEvent(QCloseEvent* event) {
    // A dock closes with its screen or when it is switched off, not at the request of a pager.
    event->setAccepted(!event->spontaneous());
}

} // namespace quillary
