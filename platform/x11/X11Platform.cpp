#include "platform/x11/X11Platform.h"

#include "platform/linux/LinuxFolders.h"
#include "platform/linux/LinuxWorkspace.h"
#include "platform/linux/OwnProgram.h"
#include "platform/linux/SyslogLog.h"
#include "platform/linux/colours/SchemePalette.h"
#include "platform/linux/entries/DesktopEntries.h"
#include "platform/linux/login/LinuxLoginItem.h"
#include "platform/linux/memory/LinuxMemorySource.h"
#include "platform/linux/statusbar/QtStatusItem.h"
#include "platform/linux/systemdock/LinuxSystemDockPreferences.h"
#include "platform/qt/QtScheduler.h"
#include "platform/x11/X11ClientList.h"
#include "platform/x11/X11Compositor.h"
#include "platform/x11/X11Grab.h"
#include "platform/x11/X11PanelWindow.h"
#include "platform/x11/X11PointerMonitor.h"
#include "platform/x11/X11Screens.h"
#include "platform/x11/X11SingleInstance.h"
#include "platform/x11/X11StartupNotification.h"
#include "platform/x11/X11WindowSource.h"
#include "platform/x11/X11Xsettings.h"

#include <QGuiApplication>

#include <cstdio>

namespace quillary {

// In the order of their dependencies.
struct X11Platform::Parts {
    Parts(std::unique_ptr<X11Connection> server, std::unique_ptr<X11Connection> pointerServer)
        : connection(std::move(server)),
          clients(*connection, scheduler),
          compositor(*connection),
          screens(*connection, clients),
          pointer(std::move(pointerServer), screens),
          windows(*connection, clients, screens, scheduler),
          startup(connection->screenNumber()),
          workspace(windows, entries, scheduler, log, &startup, xsettingsIconTheme(*connection)),
          instance(*connection, startup),
          tray(*connection, "_NET_SYSTEM_TRAY") {}

    QtScheduler scheduler;
    SyslogLog log;
    DesktopEntries entries{scheduler};
    LinuxSystemDockPreferences systemDock{entries, log};
    std::unique_ptr<X11Connection> connection;
    X11ClientList clients;
    X11Compositor compositor;
    X11Screens screens;
    X11PointerMonitor pointer;
    X11WindowSource windows;
    X11StartupNotification startup;
    LinuxWorkspace workspace;
    X11SingleInstance instance;
    X11SelectionOwner tray;
    SchemePalette palette;
    LinuxMemorySource memory{[this] { return workspace.desktopNow(); },
                             workspace.ownBundleIdentifier().value_or("")};
    LinuxLoginItem loginItem{OwnProgram::autostart()};
};

X11Platform::X11Platform(std::unique_ptr<Parts> parts) : m_parts(std::move(parts)) {}

X11Platform::~X11Platform() = default;

bool X11Platform::serverIsReachable() {
    xcb_connection_t* trial = xcb_connect(nullptr, nullptr);
    const bool reached = xcb_connection_has_error(trial) == 0;
    xcb_disconnect(trial);
    return reached;
}

std::unique_ptr<X11Platform> X11Platform::open() {
    if (qGuiApp == nullptr || QGuiApplication::platformName() != QLatin1String("xcb")) {
        std::fputs("Quillary: docks need an X11 session; this one has none.\n", stderr);
        return nullptr;
    }
    auto connection = X11Connection::open();
    auto pointerConnection = X11Connection::open();
    if (!connection || !pointerConnection) {
        std::fputs("Quillary: the X server refuses further connections.\n", stderr);
        return nullptr;
    }
    auto parts = std::make_unique<Parts>(std::move(connection), std::move(pointerConnection));
    // No make_unique: the constructor is private.
    return std::unique_ptr<X11Platform>(new X11Platform(std::move(parts)));
}

Screens& X11Platform::screens() {
    return m_parts->screens;
}

Workspace& X11Platform::workspace() {
    return m_parts->workspace;
}

const FileFacts& X11Platform::files() const {
    return m_parts->workspace;
}

const FileIcons& X11Platform::icons() const {
    return m_parts->workspace;
}

SystemDockPreferences& X11Platform::systemDock() {
    return m_parts->systemDock;
}

PointerMonitor& X11Platform::pointer() {
    return m_parts->pointer;
}

Scheduler& X11Platform::scheduler() {
    return m_parts->scheduler;
}

SystemLog& X11Platform::log() {
    return m_parts->log;
}

SingleInstance& X11Platform::instance() {
    return m_parts->instance;
}

MemorySource& X11Platform::memory() {
    return m_parts->memory;
}

LoginItem& X11Platform::loginItem() {
    return m_parts->loginItem;
}

BundleInfo X11Platform::bundleInfo() const {
    return OwnProgram::bundleInfo();
}

std::unique_ptr<StatusItem> X11Platform::makeStatusItem(const QIcon& symbol, const std::string& description,
                                                        std::function<Menu()> menuNeedsUpdate) {
    auto& parts = *m_parts;
    auto item = std::make_unique<QtStatusItem>(
        symbol, description, std::move(menuNeedsUpdate),
        QtStatusItem::Surroundings{
            .toPoints = [&parts](QPoint native) { return parts.screens.toPoints(native).toPoint(); },
            .frameNear = [&parts](QPoint point) { return parts.screens.frameNear(point); },
            .grab = X11Grab::take});
    item->setTrayPresent(parts.tray.isPresent());
    QObject::connect(&parts.tray, &X11SelectionOwner::changed, item.get(),
                     [&parts, item = item.get()] { item->setTrayPresent(parts.tray.isPresent()); });
    return item;
}

std::unique_ptr<PanelWindow> X11Platform::makePanelWindow(QWidget& contents) {
    return std::make_unique<X11PanelWindow>(contents, *m_parts->connection, m_parts->compositor,
                                            m_parts->screens);
}

std::filesystem::path X11Platform::applicationSupportDirectory() const {
    return LinuxFolders::configuration();
}

} // namespace quillary
