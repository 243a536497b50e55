#include "app/settings/SegmentedPicker.h"

#include "app/settings/FormColours.h"
#include "app/settings/FormFont.h"
#include "app/settings/FormPaint.h"
#include "app/settings/StateButton.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QRadioButton>

#include <algorithm>

namespace quillary {

namespace {

constexpr int segmentPadX = 13;
constexpr int segmentPadY = 4;
constexpr int leastHeight = 26;
constexpr double corner = 7;
constexpr double plateInset = 2;

class Segment final : public StateButton<QRadioButton> {
public:
    Segment(const QString& name, QWidget* parent) : StateButton(name, parent) {
        setTextRole(*this, TextRole::body);
    }

    [[nodiscard]] QSize sizeHint() const override {
        const QSize text = fontMetrics().size(Qt::TextSingleLine, this->text());
        return {text.width() + 2 * segmentPadX, std::max(text.height() + 2 * segmentPadY, leastHeight)};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const FormColours colours = FormColours::of(palette());
        QPainter painter(this);
        painter.setPen(isDown() || !(isChecked() || underMouse()) ? colours.trackText : colours.text);
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
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

QSize SegmentedPicker::sizeHint() const {
    int widest = 0;
    for (const QWidget* segment : buttons()) {
        widest = std::max(widest, segment->sizeHint().width());
    }
    const int segments = static_cast<int>(buttons().size());
    return {segments * widest + 2 * FormPaint::ringReach, layout()->sizeHint().height()};
}

bool SegmentedPicker::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        // Their ring is drawn here.
        update();
    }
    return ChoiceGroup::eventFilter(watched, event);
}

QRectF SegmentedPicker::groove() const {
    constexpr int ring = FormPaint::ringReach;
    return QRectF(rect()).adjusted(ring, ring, -ring, -ring);
}

QRectF SegmentedPicker::restingPlate() const {
    if (current() < 0) {
        return {};
    }
    return QRectF(buttons()[static_cast<std::size_t>(current())]->geometry())
        .adjusted(plateInset, plateInset, -plateInset, -plateInset);
}

void SegmentedPicker::currentChanged() {
    if (m_plate.value().toRectF().isEmpty()) {
        m_plate.jumpTo(restingPlate());
    } else {
        m_plate.moveTo(restingPlate());
    }
}

void SegmentedPicker::resizeEvent(QResizeEvent* event) {
    ChoiceGroup::resizeEvent(event);
    layout()->activate();
    m_plate.jumpTo(restingPlate());
}

void SegmentedPicker::paintEvent(QPaintEvent* /*event*/) {
    const FormColours colours = FormColours::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    FormPaint::drawPlate(painter, groove(), corner, colours.track, colours.trackBorder);
    if (const QRectF plate = m_plate.value().toRectF(); !plate.isEmpty()) {
        const double radius = corner - plateInset;
        painter.setPen(Qt::NoPen);
        QColor shadow = colours.knobShadow;
        shadow.setAlphaF(shadow.alphaF() * 0.5F);
        painter.setBrush(shadow);
        painter.drawRoundedRect(FormPaint::onPixels(painter, plate).translated(0, 0.8), radius, radius);
        FormPaint::drawPlate(painter, plate, radius, colours.raised, colours.trackBorder);
    }
    for (const QWidget* segment : buttons()) {
        if (segment->hasFocus()) {
            FormPaint::drawFocusRing(painter, *segment, QRectF(segment->geometry()).adjusted(1, 1, -1, -1),
                                     corner - 1);
        }
    }
}

} // namespace quillary
