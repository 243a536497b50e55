#import "platform/macos/MacPlatform.h"

#include "platform/macos/MacActivation.h"
#include "platform/macos/MacLog.h"
#include "platform/macos/MacLoginItem.h"
#include "platform/macos/MacMemorySource.h"
#include "platform/macos/MacPanelWindow.h"
#include "platform/macos/MacPointerMonitor.h"
#include "platform/macos/MacScreens.h"
#include "platform/macos/MacSingleInstance.h"
#include "platform/macos/MacStatusItem.h"
#include "platform/macos/MacSystemDockPreferences.h"
#import "platform/macos/MacText.h"
#include "platform/macos/MacWorkspace.h"
#include "platform/qt/QtScheduler.h"

#include <QGuiApplication>

#include <cstdio>
#include <utility>

#import <Foundation/Foundation.h>

namespace quillary {

struct MacPlatform::Parts {
    MacActivation activation;
    QtScheduler scheduler;
    MacLog log;
    MacScreens screens;
    MacPointerMonitor pointer;
    MacWorkspace workspace;
    MacSystemDockPreferences systemDock;
    MacSingleInstance instance;
    MacMemorySource memory;
    MacLoginItem loginItem;
};

MacPlatform::MacPlatform(std::unique_ptr<Parts> parts) : m_parts(std::move(parts)) {}

MacPlatform::~MacPlatform() = default;

std::unique_ptr<MacPlatform> MacPlatform::open() {
    if (qGuiApp == nullptr || QGuiApplication::platformName() != QLatin1String("cocoa")) {
        std::fputs("Quillary: docks need macOS's own windows; the toolkit uses others.\n", stderr);
        return nullptr;
    }
    // No make_unique: the constructor is private.
    return std::unique_ptr<MacPlatform>(new MacPlatform(std::make_unique<Parts>()));
}

Screens& MacPlatform::screens() {
    return m_parts->screens;
}

Workspace& MacPlatform::workspace() {
    return m_parts->workspace;
}

const FileFacts& MacPlatform::files() const {
    return m_parts->workspace;
}

const FileIcons& MacPlatform::icons() const {
    return m_parts->workspace;
}

SystemDockPreferences& MacPlatform::systemDock() {
    return m_parts->systemDock;
}

PointerMonitor& MacPlatform::pointer() {
    return m_parts->pointer;
}

Scheduler& MacPlatform::scheduler() {
    return m_parts->scheduler;
}

SystemLog& MacPlatform::log() {
    return m_parts->log;
}

SingleInstance& MacPlatform::instance() {
    return m_parts->instance;
}

MemorySource& MacPlatform::memory() {
    return m_parts->memory;
}

LoginItem& MacPlatform::loginItem() {
    return m_parts->loginItem;
}

BundleInfo MacPlatform::bundleInfo() const {
    NSDictionary<NSString*, id>* information = [[NSBundle mainBundle] infoDictionary];
    return {.shortVersion = MacText::plainIfText([information objectForKey:@"CFBundleShortVersionString"]),
            .build = MacText::plainIfText([information objectForKey:@"CFBundleVersion"])};
}

std::unique_ptr<StatusItem> MacPlatform::makeStatusItem(const QIcon& symbol, const std::string& description,
                                                        std::function<Menu()> menuNeedsUpdate) {
    return std::make_unique<MacStatusItem>(symbol, description, std::move(menuNeedsUpdate));
}

std::unique_ptr<PanelWindow> MacPlatform::makePanelWindow(QWidget& contents) {
    return std::make_unique<MacPanelWindow>(contents);
}

std::filesystem::path MacPlatform::applicationSupportDirectory() const {
    NSURL* folder = [[[NSFileManager defaultManager] URLsForDirectory:NSApplicationSupportDirectory
                                                            inDomains:NSUserDomainMask] firstObject];
    if (folder == nil) {
        return std::filesystem::path(MacText::plain(NSHomeDirectory())) / "Library" / "Application Support";
    }
    return MacText::plain([folder path]);
}

} // namespace quillary
