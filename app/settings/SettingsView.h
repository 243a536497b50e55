#pragma once

#include "app/settings/SettingsWindow.h"

#include <QPointer>
#include <QScrollArea>

#include <memory>
#include <vector>

class QVBoxLayout;

namespace quillary {

class DockManager;
class DockModel;
class DockSettingsSection;
class FormGroup;
class Platform;
class Switch;

/// The settings form: one scrolling column of groups, of which the docks' sections come and go with the
/// screens.
class SettingsView : public QScrollArea {
    Q_OBJECT

public:
    /// The platform must outlive the form; a manager that is gone is asked nothing any more.
    SettingsView(DockManager& manager, Platform& platform, SettingsWindow::Form form);
    ~SettingsView() override;

    /// From top to bottom.
    [[nodiscard]] std::vector<FormGroup*> groups() const;

protected:
    bool event(QEvent* event) override;

private:
    [[nodiscard]] FormGroup* welcomeGroup();
    [[nodiscard]] FormGroup* memoryGroup();
    void followModels();
    void updateSections();
    void updateOrder();
    void layOut();
    [[nodiscard]] DockSettingsSection* newSection(const std::shared_ptr<DockModel>& model);

    QPointer<DockManager> manager;
    Platform& platform;
    QWidget* column;
    QVBoxLayout* layout;
    FormGroup* welcome = nullptr;
    FormGroup* memory = nullptr;
    FormGroup* general = nullptr;
    std::vector<DockSettingsSection*> sections;
};

} // namespace quillary
