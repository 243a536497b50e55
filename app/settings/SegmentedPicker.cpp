#include "app/settings/SegmentedPicker.h"

#include "app/settings/FormColours.h"
#include "app/settings/FormLabel.h"
#include "app/settings/FormPaint.h"
#include "app/settings/StateButton.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace quillary {

namespace {

constexpr int segmentPadX = 13;
constexpr int segmentPadY = 4;
constexpr int leastHeight = 26;
constexpr double corner = 7;
constexpr double plateInset = 2;
constexpr int slideTime = 160;

class Segment final : public StateButton {
public:
    Segment(const QString& name, QWidget* parent) : StateButton(Kind::choice, name, parent) {
        setFont(formFont(TextRole::body));
    }

    [[nodiscard]] QSize sizeHint() const override {
        const QSize text = fontMetrics().size(Qt::TextSingleLine, this->text());
        return {text.width() + 2 * segmentPadX, std::max(text.height() + 2 * segmentPadY, leastHeight)};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ApplicationFontChange) {
            setFont(formFont(TextRole::body));
        }
        return StateButton::event(event);
    }

    void paintEvent(QPaintEvent* /*event*/) override {
        const FormColours colours = FormColours::of(palette());
        QPainter painter(this);
        painter.setPen(isDown() || !(isOn() || underMouse()) ? colours.secondaryText : colours.text);
        painter.setFont(font());
        painter.drawText(rect(), Qt::AlignCenter, text());
    }
};

} // namespace

SegmentedPicker::SegmentedPicker(const QString& name, const QStringList& titles, QWidget* parent)
    : ChoiceGroup(name, parent) {
    auto* layout = new QHBoxLayout(this);
    constexpr int ring = FormPaint::ringReach;
    layout->setContentsMargins(ring, ring, ring, ring);
    layout->setSpacing(0);
    for (const QString& title : titles) {
        auto* segment = new Segment(title, this);
        segment->setAttribute(Qt::WA_Hover);
        segment->installEventFilter(this);
        layout->addWidget(segment, 1);
        add(segment);
    }
    evenOut();
    slide.setEasingCurve(QEasingCurve::OutCubic);
    connect(&slide, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        plate = value.toRectF();
        update();
    });
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SegmentedPicker::evenOut() {
    int widest = 0;
    for (const StateButton* segment : buttons()) {
        widest = std::max(widest, segment->sizeHint().width());
    }
    for (StateButton* segment : buttons()) {
        segment->setMinimumWidth(widest);
    }
}

bool SegmentedPicker::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        // Their ring is drawn here.
        update();
    } else if (event->type() == QEvent::FontChange) {
        evenOut();
    }
    return ChoiceGroup::eventFilter(watched, event);
}

QRectF SegmentedPicker::groove() const {
    constexpr int ring = FormPaint::ringReach;
    return QRectF(rect()).adjusted(ring, ring, -ring, -ring);
}

QRectF SegmentedPicker::plateAt(int index) const {
    if (index < 0 || index >= static_cast<int>(buttons().size())) {
        return {};
    }
    return QRectF(buttons()[static_cast<std::size_t>(index)]->geometry())
        .adjusted(plateInset, plateInset, -plateInset, -plateInset);
}

void SegmentedPicker::currentChanged() {
    slide.stop();
    const QRectF target = plateAt(current());
    const bool moves = isVisible() && !plate.isEmpty() && !target.isEmpty() &&
                       style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    if (moves) {
        slide.setDuration(slideTime);
        slide.setStartValue(plate);
        slide.setEndValue(target);
        slide.start();
    } else {
        plate = target;
        update();
    }
}

void SegmentedPicker::resizeEvent(QResizeEvent* event) {
    ChoiceGroup::resizeEvent(event);
    layout()->activate();
    slide.stop();
    plate = plateAt(current());
}

void SegmentedPicker::paintEvent(QPaintEvent* /*event*/) {
    const FormColours colours = FormColours::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    FormPaint::drawPlate(painter, groove(), corner, colours.track, colours.trackBorder);
    if (!plate.isEmpty()) {
        const double radius = corner - plateInset;
        painter.setPen(Qt::NoPen);
        QColor shadow = colours.knobShadow;
        shadow.setAlphaF(shadow.alphaF() * 0.5F);
        painter.setBrush(shadow);
        painter.drawRoundedRect(FormPaint::onPixels(painter, plate).translated(0, 0.8), radius, radius);
        FormPaint::drawPlate(painter, plate, radius, colours.raised, colours.trackBorder);
    }
    for (const StateButton* segment : buttons()) {
        if (segment->hasFocus()) {
            FormPaint::drawFocusRing(painter, *segment, QRectF(segment->geometry()).adjusted(1, 1, -1, -1),
                                     corner - 1);
        }
    }
}

} // namespace quillary
