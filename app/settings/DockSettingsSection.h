#pragma once

#include "app/settings/FormGroup.h"

#include <functional>
#include <memory>

namespace quillary {

class ChoiceGroup;
class DockModel;
class Platform;
class SegmentedPicker;
class Switch;
struct DockConfig;

/// The options of one screen's dock, titled with the screen's name. It keeps no state: it shows the model's
/// configuration and changes it through the model.
class DockSettingsSection : public FormGroup {
    Q_OBJECT

public:
    /// The platform must outlive the section.
    DockSettingsSection(std::shared_ptr<DockModel> model, Platform& platform, QWidget* parent = nullptr);
    ~DockSettingsSection() override;

    [[nodiscard]] const std::shared_ptr<DockModel>& dock() const { return m_model; }

Q_SIGNALS:
    /// Rows were hidden or shown.
    void rowsChanged();

private:
    [[nodiscard]] Switch* boundSwitch(const QString& name, bool DockConfig::*field);
    template<typename Value>
    [[nodiscard]] SegmentedPicker* boundPicker(const QString& name, Value DockConfig::*field);
    template<typename Value>
    void bind(ChoiceGroup& group, Value DockConfig::*field);
    [[nodiscard]] QWidget* styleRow();
    [[nodiscard]] QWidget* iconSizeRow();
    [[nodiscard]] QWidget* itemsRow();
    void refresh();
    void addSystemDockItems();

    std::shared_ptr<DockModel> m_model;
    Platform& m_platform;
    /// Makes each control show its part of a configuration.
    std::vector<std::function<void(const DockConfig&)>> m_shows;
    /// Visible only while the dock is on.
    std::vector<QWidget*> m_optionRows;
};

} // namespace quillary
