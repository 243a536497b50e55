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
    /// The platform must outlive the form; the manager may go away first.
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

    QPointer<DockManager> m_manager;
    Platform& m_platform;
    QWidget* m_column;
    QVBoxLayout* m_layout;
    FormGroup* m_welcome = nullptr;
    FormGroup* m_memory = nullptr;
    FormGroup* m_general = nullptr;
    std::vector<DockSettingsSection*> m_sections;
};

} // namespace quillary
