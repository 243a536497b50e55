#include "app/settings/SettingsView.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillary {

namespace {

constexpr int margin = 24;
constexpr int bannerSpacing = 6;
constexpr QSize smallest(520, 480);
constexpr double headlineGrowth = 1.25;

QLabel* text(const QString& words, QWidget* parent) {
    auto* label = new QLabel(words, parent);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    return label;
}

void addBanner(QVBoxLayout& layout, QWidget* parent) {
    auto* headline = text(u"Welcome — every screen now has its own Dock."_s, parent);
    QFont font = headline->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * headlineGrowth);
    headline->setFont(font);
    auto* explanation = text(
        u"We copied your macOS Dock to start and tucked the original away — turn that off under General, or "
        u"just quit Quillary to get it back. Drag apps or folders from Finder onto a Dock to add them, drag "
        u"icons to reorder, and right-click any Dock for options."_s,
        parent);
    layout.addWidget(headline);
    layout.addSpacing(bannerSpacing);
    layout.addWidget(explanation);
    layout.addSpacing(margin);
}

} // namespace

SettingsView::SettingsView(SettingsWindow::Form form) {
    setMinimumSize(smallest);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(0);
    if (form == SettingsWindow::Form::welcome) {
        addBanner(*layout, this);
    }
    layout->addWidget(text(u"The options of a dock are in the menu that opens when you right-click it. "
                           u"Those of the whole program are in the menu of its symbol in the status bar."_s,
                           this));
    layout->addStretch();
}

} // namespace quillary
