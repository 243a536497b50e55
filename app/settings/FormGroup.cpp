#include "app/settings/FormGroup.h"

#include "app/settings/FormColours.h"
#include "app/settings/FormLabel.h"
#include "app/settings/FormPaint.h"

#include <QPainter>
#include <QVBoxLayout>

namespace quillary {

namespace {

constexpr int headerIndent = 4;
constexpr int headerGap = 7;
constexpr double corner = 10;
constexpr int separatorInset = 12;
/// Names come from monitors and from whoever set them: nobody reads more of one.
constexpr qsizetype longestTitle = 200;

} // namespace

FormGroup::FormGroup(const QString& name, QWidget* parent)
    : QWidget(parent),
      header(new FormLabel({}, TextRole::sectionHeader, TextTone::primary, this)),
      box(new QWidget(this)),
      rowLayout(new QVBoxLayout(box)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    header->setWordWrap(false);
    header->setContentsMargins(headerIndent, 0, headerIndent, headerGap);
    // The title is cut to the group's width; it does not widen the group.
    header->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    layout->addWidget(header);
    layout->addWidget(box);
    rowLayout->setContentsMargins(0, 0, 0, 0);
    rowLayout->setSpacing(0);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setTitle(name);
}

void FormGroup::setTitle(const QString& name) {
    fullTitle = name.left(longestTitle).simplified();
    setAccessibleName(fullTitle);
    header->setVisible(!fullTitle.isEmpty());
    fitTitle();
}

void FormGroup::fitTitle() {
    const int room = width() - 2 * headerIndent;
    header->setText(header->fontMetrics().elidedText(fullTitle, Qt::ElideRight, room));
}

void FormGroup::addRow(QWidget* row, Separation separation) {
    rowLayout->addWidget(row);
    rows.push_back({row, separation});
}

void FormGroup::layOut() {
    rowLayout->activate();
    layout()->activate();
}

std::vector<QWidget*> FormGroup::controls() const {
    std::vector<QWidget*> found;
    for (const Row& row : rows) {
        for (QWidget* child : row.widget->findChildren<QWidget*>()) {
            if (child->focusPolicy() != Qt::NoFocus) {
                found.push_back(child);
            }
        }
    }
    return found;
}

void FormGroup::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fitTitle();
}

void FormGroup::paintEvent(QPaintEvent* /*event*/) {
    const FormColours colours = FormColours::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    FormPaint::drawPlate(painter, box->geometry(), corner, colours.group, colours.groupBorder);
    bool first = true;
    for (const Row& row : rows) {
        if (row.widget->isHidden()) {
            continue;
        }
        if (!first && row.separation == Separation::line) {
            const double top = box->y() + row.widget->y();
            const QRectF line(box->x() + separatorInset, top, box->width() - 2 * separatorInset, 1);
            painter.fillRect(FormPaint::onPixels(painter, line), colours.separator);
        }
        first = false;
    }
}

} // namespace quillary
