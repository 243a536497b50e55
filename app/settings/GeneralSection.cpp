#include "app/settings/GeneralSection.h"

#include "app/DockManager.h"
#include "app/settings/FormLabel.h"
#include "app/settings/FormRow.h"
#include "app/settings/Switch.h"
#include "app/settings/VersionLabel.h"
#include "platform/LoginItem.h"
#include "platform/Platform.h"
#include "platform/SystemLog.h"

using namespace Qt::StringLiterals;

namespace quillary {

GeneralSection::GeneralSection(DockManager& manager, Platform& platform, QWidget* parent)
    : FormGroup(u"General"_s, parent),
      m_manager(&manager),
      m_platform(platform),
      m_hideSystemDock(new Switch(u"Hide the macOS Dock (Quillary replaces it)"_s)),
      m_launchAtLogin(new Switch(u"Launch Quillary at login"_s)) {
    addRow(new FormRow(m_hideSystemDock->text(), m_hideSystemDock));
    addRow(new FormRow(m_launchAtLogin->text(), m_launchAtLogin));
    const QString version = QString::fromStdString(versionLabel(m_platform.bundleInfo()));
    auto* versionText = new FormLabel(version, TextRole::body, TextTone::secondary);
    versionText->setWordWrap(false);
    versionText->setTextInteractionFlags(Qt::NoTextInteraction);
    addRow(new FormRow(u"Version"_s, versionText));

    m_hideSystemDock->setChecked(manager.hideSystemDock());
    connect(&manager, &DockManager::hideSystemDockChanged, this,
            [this] { m_hideSystemDock->setChecked(m_manager->hideSystemDock()); });
    connect(m_hideSystemDock, &Switch::switched, this, [this](bool on) {
        if (m_manager) {
            m_manager->setHideSystemDock(on);
        }
    });
    m_launchAtLogin->setChecked(launchesAtLogin());
    connect(m_launchAtLogin, &Switch::switched, this, &GeneralSection::setLaunchAtLogin);
}

bool GeneralSection::launchesAtLogin() const {
    return m_platform.loginItem().status() == LoginItem::Status::enabled;
}

void GeneralSection::setLaunchAtLogin(bool on) {
    m_launchAtLogin->setChecked(on);
    LoginItem& item = m_platform.loginItem();
    const auto changed = on ? item.registerItem() : item.unregisterItem();
    if (!changed) {
        m_launchAtLogin->setChecked(launchesAtLogin());
        m_platform.log().write("Quillary: launch at login failed " + changed.error());
    }
}

} // namespace quillary
