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
/// A monitor can report a name of any length.
constexpr qsizetype longestTitle = 200;

} // namespace

FormGroup::FormGroup(const QString& title, QWidget* parent)
    : QWidget(parent),
      m_header(new FormLabel({}, TextRole::sectionHeader, TextTone::primary, this)),
      m_box(new QWidget(this)),
      m_rowLayout(new QVBoxLayout(m_box)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_header->setWordWrap(false);
    m_header->setContentsMargins(headerIndent, 0, headerIndent, headerGap);
    // The title is cut to the group's width; it does not widen the group.
    m_header->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    layout->addWidget(m_header);
    layout->addWidget(m_box);
    m_rowLayout->setContentsMargins(0, 0, 0, 0);
    m_rowLayout->setSpacing(0);
    // A size hint does not know the width at which texts wrap: the group must be able to grow beyond it.
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    setTitle(title);
}

void FormGroup::setTitle(const QString& title) {
    m_title = title.left(longestTitle).simplified();
    setAccessibleName(m_title);
    m_header->setVisible(!m_title.isEmpty());
    fitTitle();
}

void FormGroup::fitTitle() {
    const int room = width() - 2 * headerIndent;
    m_header->setText(m_header->fontMetrics().elidedText(m_title, Qt::ElideRight, room));
}

void FormGroup::addRow(QWidget* row, Separation separation) {
    m_rowLayout->addWidget(row);
    m_rows.push_back({row, separation});
}

void FormGroup::layOut() {
    m_rowLayout->activate();
    layout()->activate();
}

std::vector<QWidget*> FormGroup::controls() const {
    std::vector<QWidget*> found;
    for (const Row& row : m_rows) {
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
    FormPaint::drawPlate(painter, m_box->geometry(), corner, colours.group, colours.groupBorder);
    bool first = true;
    for (const Row& row : m_rows) {
        if (row.widget->isHidden()) {
            continue;
        }
        if (!first && row.separation == Separation::line) {
            const QPointF start(m_box->x() + separatorInset, m_box->y() + row.widget->y());
            FormPaint::drawLine(painter, start, m_box->width() - 2 * separatorInset, colours.separator);
        }
        first = false;
    }
}

} // namespace quillary
