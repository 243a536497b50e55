#include "app/settings/SettingsView.h"

#include "app/DockManager.h"
#include "app/DockModel.h"
#include "app/settings/ControlAccessibility.h"
#include "app/settings/DockSettingsSection.h"
#include "app/settings/FormFont.h"
#include "app/settings/FormLabel.h"
#include "app/settings/FormRow.h"
#include "app/settings/GeneralSection.h"
#include "app/settings/SlimScrollBarStyle.h"
#include "app/settings/Switch.h"

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
/// Beside the groups. The right one includes the scroll bar, so that nothing moves when its thumb appears.
constexpr int sideMargin = 14;
constexpr int topMargin = 20;
constexpr int groupGap = 22;
constexpr int widestGroup = 720;
constexpr int bannerSpacing = 6;
constexpr int bannerPadding = 4;

} // namespace

SettingsView::SettingsView(DockManager& manager, Platform& platform, SettingsWindow::Form form)
    : m_manager(&manager), m_platform(platform), m_column(new QWidget) {
    installControlAccessibility();
    setMinimumSize(smallest);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    // Only a font much larger than usual makes the form wider than the window.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    auto* slim = new SlimScrollBarStyle;
    slim->setParent(this);
    verticalScrollBar()->setStyle(slim);
    setFocusPolicy(Qt::NoFocus);

    auto* centring = new QHBoxLayout(m_column);
    centring->setContentsMargins(sideMargin, topMargin, sideMargin - SlimScrollBarStyle::thickness,
                                 topMargin);
    auto* groupColumn = new QWidget(m_column);
    groupColumn->setMaximumWidth(widestGroup);
    centring->addWidget(groupColumn);
    m_layout = new QVBoxLayout(groupColumn);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(groupGap);

    if (form == SettingsWindow::Form::welcome) {
        m_welcome = welcomeGroup();
        m_layout->addWidget(m_welcome);
    }
    m_memory = memoryGroup();
    m_layout->addWidget(m_memory);
    m_general = new GeneralSection(manager, platform);
    m_layout->addWidget(m_general);
    m_layout->addStretch();
    setWidget(m_column);

    auto* close = new QShortcut(QKeySequence::Close, this);
    connect(close, &QShortcut::activated, this, &QWidget::close);
    connect(&manager, &DockManager::modelsChanged, this, &SettingsView::followModels);
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
    shown->setChecked(m_manager->showMemorySetting());
    connect(m_manager, &DockManager::showMemorySettingChanged, shown,
            [this, shown] { shown->setChecked(m_manager->showMemorySetting()); });
    connect(shown, &Switch::switched, this, [this](bool on) {
        if (m_manager) {
            m_manager->setShowMemory(on);
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
    if (m_welcome != nullptr) {
        all.push_back(m_welcome);
    }
    all.push_back(m_memory);
    all.insert(all.end(), m_sections.begin(), m_sections.end());
    all.push_back(m_general);
    return all;
}

// When sections above come or go, the group with the focus, or else the uppermost visible one, keeps its
// place in the viewport.
void SettingsView::followModels() {
    const int scrolled = verticalScrollBar()->value();
    const auto top = [this](const FormGroup* group) { return group->mapTo(m_column, QPoint()).y(); };
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

bool SettingsView::event(QEvent* event) {
    // Only windows receive this event.
    if (event->type() == QEvent::ApplicationFontChange) {
        renewFormFonts(*this);
    }
    return QScrollArea::event(event);
}

// At once: the toolkit would first paint the form with the room of rows that have gone.
void SettingsView::layOut() {
    if (!isVisible()) {
        return;
    }
    for (FormGroup* group : groups()) {
        group->layOut();
    }
    m_layout->activate();
    m_column->layout()->activate();
    const int width = std::max(viewport()->width(), m_column->minimumSizeHint().width());
    const int needed =
        m_column->hasHeightForWidth() ? m_column->heightForWidth(width) : m_column->sizeHint().height();
    m_column->resize(width, std::max(needed, viewport()->height()));
    m_column->layout()->activate();
    m_layout->activate();
}

DockSettingsSection* SettingsView::newSection(const std::shared_ptr<DockModel>& model) {
    auto* section = new DockSettingsSection(model, m_platform);
    connect(section, &DockSettingsSection::rowsChanged, this, &SettingsView::layOut);
    return section;
}

void SettingsView::updateSections() {
    std::vector<DockSettingsSection*> next;
    for (const auto& model : m_manager->models()) {
        // Two screens with one key share a dock's configuration, and so its section.
        if (std::ranges::find(next, model, &DockSettingsSection::dock) != next.end()) {
            continue;
        }
        const auto known = std::ranges::find(m_sections, model, &DockSettingsSection::dock);
        next.push_back(known != m_sections.end() ? *known : newSection(model));
    }
    for (DockSettingsSection* section : std::exchange(m_sections, next)) {
        if (std::ranges::find(next, section) == next.end()) {
            m_layout->removeWidget(section);
            section->hide();
            // This may be running in a handler of one of its controls.
            section->deleteLater();
        }
    }
    updateOrder();
}

void SettingsView::updateOrder() {
    int place = 0;
    QWidget* before = nullptr;
    for (FormGroup* group : groups()) {
        if (m_layout->indexOf(group) != place) {
            m_layout->removeWidget(group);
            m_layout->insertWidget(place, group);
            group->show();
        }
        ++place;
        // Assistive technology reads children in their stacking order.
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
