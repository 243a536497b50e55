#include "app/settings/SettingsView.h"

#include "app/DockManager.h"
#include "app/DockModel.h"
#include "app/settings/ControlAccessibility.h"
#include "app/settings/DockSettingsSection.h"
#include "app/settings/FormLabel.h"
#include "app/settings/FormRow.h"
#include "app/settings/GeneralSection.h"
#include "app/settings/SlimScrollBarStyle.h"
#include "app/settings/Switch.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillary {

namespace {

constexpr QSize smallest(520, 480);
/// Beside the groups. At the right it holds the scroll bar, so that nothing moves when that appears.
constexpr int sideMargin = 14;
constexpr int topMargin = 20;
constexpr int groupGap = 22;
constexpr int widestGroup = 720;
constexpr int bannerSpacing = 6;
constexpr int bannerPadding = 4;

} // namespace

SettingsView::SettingsView(DockManager& docks, Platform& system, SettingsWindow::Form form)
    : manager(&docks), platform(system), column(new QWidget) {
    installControlAccessibility();
    setMinimumSize(smallest);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    auto* slim = new SlimScrollBarStyle;
    slim->setParent(this);
    verticalScrollBar()->setStyle(slim);
    setFocusPolicy(Qt::NoFocus);

    auto* centring = new QHBoxLayout(column);
    centring->setContentsMargins(sideMargin, topMargin, sideMargin - SlimScrollBarStyle::thickness,
                                 topMargin);
    auto* groupColumn = new QWidget(column);
    groupColumn->setMaximumWidth(widestGroup);
    centring->addWidget(groupColumn);
    layout = new QVBoxLayout(groupColumn);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(groupGap);

    if (form == SettingsWindow::Form::welcome) {
        welcome = welcomeGroup();
        layout->addWidget(welcome);
    }
    memory = memoryGroup();
    layout->addWidget(memory);
    general = new GeneralSection(docks, platform);
    layout->addWidget(general);
    layout->addStretch();
    setWidget(column);

    auto* close = new QShortcut(QKeySequence::Close, this);
    connect(close, &QShortcut::activated, this, &QWidget::close);
    connect(&docks, &DockManager::modelsChanged, this, &SettingsView::followModels);
    updateSections();
}

SettingsView::~SettingsView() = default;

FormGroup* SettingsView::welcomeGroup() {
    auto* group = new FormGroup({});
    auto* row = new QWidget;
    auto* words = new QVBoxLayout(row);
    constexpr int vertical = rowMargin + bannerPadding;
    words->setContentsMargins(rowPadding, vertical, rowPadding, vertical);
    words->setSpacing(bannerSpacing);
    words->addWidget(new FormLabel(u"Welcome — every screen now has its own Dock."_s, TextRole::headline,
                                   TextTone::primary));
    words->addWidget(new FormLabel(
        u"We copied your macOS Dock to start and tucked the original away — turn that off under General, or "
        u"just quit Quillary to get it back. Drag apps or folders from Finder onto a Dock to add them, drag "
        u"icons to reorder, and right-click any Dock for options."_s,
        TextRole::body, TextTone::secondary));
    group->addRow(row);
    return group;
}

FormGroup* SettingsView::memoryGroup() {
    auto* group = new FormGroup(u"RAM on Dock"_s);
    auto* shown = new Switch(u"Show which apps are eating memory"_s);
    shown->setOn(manager->showMemorySetting());
    connect(manager, &DockManager::showMemorySettingChanged, shown,
            [this, shown] { shown->setOn(manager->showMemorySetting()); });
    connect(shown, &Switch::switched, this, [this](bool on) {
        if (manager) {
            manager->setShowMemory(on);
        }
    });
    group->addRow(new FormRow(shown->text(), shown));
    auto* explanation = new FormLabel(
        u"A yellow dot under an app means it's heavy; red means it's the reason your Mac feels slow. Hover "
        u"to see how much memory it uses, right-click to quit it."_s,
        TextRole::callout, TextTone::secondary);
    explanation->setContentsMargins(rowPadding, 0, rowPadding, rowMargin + 2);
    group->addRow(explanation, FormGroup::Separation::none);
    return group;
}

std::vector<FormGroup*> SettingsView::groups() const {
    std::vector<FormGroup*> all;
    if (welcome != nullptr) {
        all.push_back(welcome);
    }
    all.push_back(memory);
    all.insert(all.end(), sections.begin(), sections.end());
    all.push_back(general);
    return all;
}

// What the user looks at stays where it is when sections above it come or go: the group with the focus, else
// the uppermost one that is seen.
void SettingsView::followModels() {
    const int scrolled = verticalScrollBar()->value();
    const auto top = [this](const FormGroup* group) { return group->mapTo(column, QPoint()).y(); };
    QPointer<FormGroup> anchor;
    for (FormGroup* group : groups()) {
        const bool focused = focusWidget() != nullptr && group->isAncestorOf(focusWidget());
        const bool seen = top(group) + group->height() > scrolled;
        if (seen && (anchor.isNull() || focused)) {
            anchor = group;
        }
    }
    const int offset = anchor ? top(anchor) - scrolled : 0;
    updateSections();
    layOut();
    const auto all = groups();
    const bool remains = anchor && std::ranges::find(all, anchor.data()) != all.end();
    verticalScrollBar()->setValue(remains && scrolled > 0 ? top(anchor) - offset : scrolled);
}

// The toolkit tells windows only, and texts have fonts of their own made from the application's.
bool SettingsView::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange) {
        for (QWidget* child : findChildren<QWidget*>()) {
            QCoreApplication::sendEvent(child, event);
        }
    }
    return QScrollArea::event(event);
}

// At once, so that nobody sees the form between two places, or the room of rows that have gone.
void SettingsView::layOut() {
    if (!isVisible()) {
        return;
    }
    for (FormGroup* group : groups()) {
        group->layOut();
    }
    layout->activate();
    column->layout()->activate();
    const int width = viewport()->width();
    const int needed =
        column->hasHeightForWidth() ? column->heightForWidth(width) : column->sizeHint().height();
    column->resize(width, std::max(needed, viewport()->height()));
    column->layout()->activate();
    layout->activate();
}

DockSettingsSection* SettingsView::newSection(const std::shared_ptr<DockModel>& model) {
    auto* section = new DockSettingsSection(model, *manager, platform);
    connect(section, &DockSettingsSection::rowsChanged, this, &SettingsView::layOut);
    return section;
}

void SettingsView::updateSections() {
    std::vector<DockSettingsSection*> next;
    for (const auto& model : manager->models()) {
        // Two screens with one key share a dock's configuration, and so its section.
        if (std::ranges::find(next, model, &DockSettingsSection::dock) != next.end()) {
            continue;
        }
        const auto known = std::ranges::find(sections, model, &DockSettingsSection::dock);
        next.push_back(known != sections.end() ? *known : newSection(model));
    }
    for (DockSettingsSection* section : std::exchange(sections, next)) {
        if (std::ranges::find(next, section) == next.end()) {
            layout->removeWidget(section);
            section->hide();
            // One of its controls may be what brought this about.
            section->deleteLater();
        }
    }
    updateOrder();
}

void SettingsView::updateOrder() {
    int place = 0;
    QWidget* before = nullptr;
    for (FormGroup* group : groups()) {
        if (layout->indexOf(group) != place) {
            layout->removeWidget(group);
            layout->insertWidget(place, group);
            group->show();
        }
        ++place;
        // The order of the children is what assistive technology reads them in.
        group->raise();
        for (QWidget* control : group->controls()) {
            if (before != nullptr) {
                setTabOrder(before, control);
            }
            before = control;
        }
    }
}

} // namespace quillary
