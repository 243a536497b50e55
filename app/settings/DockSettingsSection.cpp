#include "app/settings/DockSettingsSection.h"

#include "app/DockModel.h"
#include "app/settings/FormButton.h"
#include "app/settings/FormLabel.h"
#include "app/settings/FormPaint.h"
#include "app/settings/FormRow.h"
#include "app/settings/SegmentedPicker.h"
#include "app/settings/StepSlider.h"
#include "app/settings/StylePicker.h"
#include "app/settings/Switch.h"
#include "app/settings/TwoEndsLayout.h"
#include "core/DockItems.h"
#include "platform/Platform.h"
#include "platform/SystemDockPreferences.h"

#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillary {

namespace {

constexpr StepSlider::Scale iconSizes{.least = 32, .most = 80, .step = 4};
constexpr int styleGap = 4;
constexpr int itemsGap = 16;

template<typename Value>
int indexOf(Value value) {
    const auto all = allCases<Value>();
    return static_cast<int>(std::distance(all.begin(), std::ranges::find(all, value)));
}

} // namespace

DockSettingsSection::DockSettingsSection(std::shared_ptr<DockModel> model, Platform& platform,
                                         QWidget* parent)
    : FormGroup({}, parent), m_model(std::move(model)), m_platform(platform) {
    auto* enabled = boundSwitch(u"Show a Dock on this screen"_s, &DockConfig::enabled);
    addRow(new FormRow(enabled->text(), enabled));

    const auto addOption = [this](QWidget* row) {
        addRow(row);
        m_optionRows.push_back(row);
    };
    const auto addSwitch = [this, &addOption](const QString& name, bool DockConfig::*field) {
        addOption(new FormRow(name, boundSwitch(name, field)));
    };
    addOption(new FormRow(u"Position"_s, boundPicker(u"Position"_s, &DockConfig::edge)));
    addOption(styleRow());
    addOption(iconSizeRow());
    addOption(new FormRow(u"Magnification"_s, boundPicker(u"Magnification"_s, &DockConfig::magnification)));
    addSwitch(u"Bounce when opening apps"_s, &DockConfig::bounceOnLaunch);
    addSwitch(u"Show running apps"_s, &DockConfig::showRunning);
    addSwitch(u"Auto-hide (show when the pointer touches the edge)"_s, &DockConfig::autoHide);
    addOption(itemsRow());

    connect(m_model.get(), &DockModel::configChanged, this, &DockSettingsSection::refresh);
    connect(m_model.get(), &DockModel::screenNameChanged, this,
            [this] { setTitle(QString::fromStdString(m_model->screenName())); });
    setTitle(QString::fromStdString(m_model->screenName()));
    refresh();
}

DockSettingsSection::~DockSettingsSection() = default;

void DockSettingsSection::refresh() {
    // A copy: showing a value can lead to a change of the configuration.
    const DockConfig config = m_model->config();
    for (const auto& show : m_shows) {
        show(config);
    }
    if (m_optionRows.front()->isHidden() == config.enabled) {
        for (QWidget* row : m_optionRows) {
            row->setVisible(config.enabled);
        }
        update();
        Q_EMIT rowsChanged();
    }
}

Switch* DockSettingsSection::boundSwitch(const QString& name, bool DockConfig::*field) {
    auto* control = new Switch(name);
    m_shows.emplace_back([control, field](const DockConfig& config) { control->setChecked(config.*field); });
    connect(control, &Switch::switched, this, [this, field](bool on) {
        m_model->update([field, on](DockConfig& config) { config.*field = on; });
    });
    return control;
}

template<typename Value>
void DockSettingsSection::bind(ChoiceGroup& group, Value DockConfig::*field) {
    m_shows.emplace_back(
        [&group, field](const DockConfig& config) { group.setCurrent(indexOf(config.*field)); });
    connect(&group, &ChoiceGroup::chosen, this, [this, field](int index) {
        const Value value = allCases<Value>().at(static_cast<std::size_t>(index));
        m_model->update([field, value](DockConfig& config) { config.*field = value; });
    });
}

template<typename Value>
SegmentedPicker* DockSettingsSection::boundPicker(const QString& name, Value DockConfig::*field) {
    QStringList titles;
    for (const Value value : allCases<Value>()) {
        titles.append(QString::fromStdString(quillary::title(value)));
    }
    auto* control = new SegmentedPicker(name, titles);
    bind(*control, field);
    return control;
}

QWidget* DockSettingsSection::styleRow() {
    auto* row = new QWidget;
    auto* layout = new QVBoxLayout(row);
    constexpr int ring = FormPaint::ringReach;
    layout->setContentsMargins(rowPadding - ring, rowMargin, rowPadding - ring, rowMargin);
    layout->setSpacing(styleGap);
    auto* caption = new FormLabel(u"Style"_s, TextRole::body, TextTone::primary);
    caption->setContentsMargins(ring, 0, 0, 0);
    layout->addWidget(caption);
    auto* picker = new StylePicker(u"Style"_s);
    bind(*picker, &DockConfig::style);
    layout->addWidget(picker, 0, Qt::AlignLeading);
    return row;
}

QWidget* DockSettingsSection::iconSizeRow() {
    auto* slider = new StepSlider(u"Icon size"_s, iconSizes);
    m_shows.emplace_back([slider](const DockConfig& config) { slider->setValue(config.iconSize); });
    connect(slider, &StepSlider::chosen, this,
            [this](int size) { m_model->update([size](DockConfig& config) { config.iconSize = size; }); });
    return new FormRow(u"Icon size"_s, slider);
}

QWidget* DockSettingsSection::itemsRow() {
    auto* row = new QWidget;
    auto* layout = new TwoEndsLayout(row);
    constexpr int ring = FormPaint::ringReach;
    layout->setContentsMargins(rowPadding - ring, rowMargin - ring, rowPadding, rowMargin - ring);
    layout->setSpacing(itemsGap);
    auto* button = new FormButton(u"Add apps from the macOS Dock"_s);
    connect(button, &QAbstractButton::clicked, this, &DockSettingsSection::addSystemDockItems);
    layout->addWidget(button);
    layout->setAlignment(button, Qt::AlignLeading | Qt::AlignVCenter);
    auto* count = new FormLabel({}, TextRole::body, TextTone::secondary);
    count->setWordWrap(false);
    m_shows.emplace_back([count](const DockConfig& config) {
        count->setText(QString::number(config.items.size()) + u" pinned"_s);
    });
    layout->addWidget(count);
    return row;
}

void DockSettingsSection::addSystemDockItems() {
    // Read before the update: the function that it calls must only compute.
    const auto pinned = m_platform.systemDock().pinnedItems();
    m_model->update(
        [&pinned](DockConfig& config) { config.items = DockItems::adding(pinned, config.items); });
}

} // namespace quillary
