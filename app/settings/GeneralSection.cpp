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

GeneralSection::GeneralSection(DockManager& docks, Platform& system, QWidget* parent)
    : FormGroup(u"General"_s, parent),
      manager(&docks),
      platform(system),
      hideSystemDock(new Switch(u"Hide the macOS Dock (Quillary replaces it)"_s)),
      launchAtLogin(new Switch(u"Launch Quillary at login"_s)) {
    addRow(new FormRow(hideSystemDock->text(), hideSystemDock));
    addRow(new FormRow(launchAtLogin->text(), launchAtLogin));
    const QString version = QString::fromStdString(versionLabel(platform.bundleInfo()));
    auto* versionText = new FormLabel(version, TextRole::body, TextTone::secondary);
    versionText->setWordWrap(false);
    versionText->setTextInteractionFlags(Qt::NoTextInteraction);
    addRow(new FormRow(u"Version"_s, versionText));

    hideSystemDock->setOn(docks.hideSystemDock());
    connect(&docks, &DockManager::hideSystemDockChanged, this,
            [this] { hideSystemDock->setOn(manager->hideSystemDock()); });
    connect(hideSystemDock, &Switch::switched, this, [this](bool on) {
        if (manager) {
            manager->setHideSystemDock(on);
        }
    });
    launchAtLogin->setOn(launchesAtLogin());
    connect(launchAtLogin, &Switch::switched, this, &GeneralSection::setLaunchAtLogin);
}

bool GeneralSection::launchesAtLogin() const {
    return platform.loginItem().status() == LoginItem::Status::enabled;
}

void GeneralSection::setLaunchAtLogin(bool on) {
    launchAtLogin->setOn(on);
    LoginItem& item = platform.loginItem();
    const auto changed = on ? item.registerItem() : item.unregisterItem();
    if (!changed) {
        launchAtLogin->setOn(launchesAtLogin());
        platform.log().write("Quillary: launch at login failed " + changed.error());
    }
}

} // namespace quillary
