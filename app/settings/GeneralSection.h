#pragma once

#include "app/settings/FormGroup.h"

#include <QPointer>

namespace quillary {

class DockManager;
class Platform;
class Switch;

/// The switches of the whole program and its version.
class GeneralSection : public FormGroup {
    Q_OBJECT

public:
    /// The platform must outlive the section; the manager may go away first.
    GeneralSection(DockManager& manager, Platform& platform, QWidget* parent = nullptr);

private:
    void setLaunchAtLogin(bool on);
    [[nodiscard]] bool launchesAtLogin() const;

    QPointer<DockManager> m_manager;
    Platform& m_platform;
    Switch* m_hideSystemDock;
    Switch* m_launchAtLogin;
};

} // namespace quillary
