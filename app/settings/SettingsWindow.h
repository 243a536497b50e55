#pragma once

#include <QPointer>

#include <memory>

class QWidget;

namespace quillary {

class DockManager;
class SettingsView;

/// The one ordinary window of the program. It is made when it is first shown and kept: closing hides it.
class SettingsWindow {
public:
    enum class Form {
        /// With a banner that greets a new user. The form of the first showing holds for the window's life.
        welcome,
        normal,
    };

    /// Edits the settings of that manager, whose platform must outlive the window.
    explicit SettingsWindow(DockManager& manager);
    ~SettingsWindow();
    SettingsWindow(const SettingsWindow&) = delete;
    SettingsWindow& operator=(const SettingsWindow&) = delete;

    /// Brings the window to the front with the focus. Once the manager is gone, it does nothing.
    void show(Form form);
    /// The window; null until it was first shown.
    [[nodiscard]] QWidget* window() const;

private:
    [[nodiscard]] std::unique_ptr<SettingsView> makeView(Form form) const;

    QPointer<DockManager> m_manager;
    std::unique_ptr<SettingsView> m_view;
};

} // namespace quillary
