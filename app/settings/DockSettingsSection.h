#pragma once

#include "app/settings/FormGroup.h"

#include <QPointer>

#include <functional>
#include <memory>

namespace quillary {

class ChoiceGroup;
class DockManager;
class DockModel;
class Platform;
class SegmentedPicker;
class Switch;
struct DockConfig;

/// The options of one screen's dock, named for the screen. It has no state of its own: it shows the model's
/// configuration and changes it through the manager, which saves each change.
class DockSettingsSection : public FormGroup {
    Q_OBJECT

public:
    /// The platform must outlive the section; once the manager is gone, nothing is written any more.
    DockSettingsSection(std::shared_ptr<DockModel> model, DockManager& manager, Platform& platform,
                        QWidget* parent = nullptr);
    ~DockSettingsSection() override;

    [[nodiscard]] const std::shared_ptr<DockModel>& dock() const { return model; }

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
    void change(const std::function<void(DockConfig&)>& change);
    void addSystemDockItems();

    std::shared_ptr<DockModel> model;
    QPointer<DockManager> manager;
    Platform& platform;
    /// What brings each control to what the configuration says.
    std::vector<std::function<void(const DockConfig&)>> shows;
    /// What is seen only while the dock is on.
    std::vector<QWidget*> optionRows;
};

} // namespace quillary
