#import "platform/macos/MacWorkspace.h"

#import "platform/macos/MacIcon.h"
#include "platform/macos/MacLog.h"
#import "platform/macos/MacRunningApplications.h"
#import "platform/macos/MacText.h"
#import "platform/macos/NotificationToken.h"

#include <vector>

#import <AppKit/AppKit.h>

namespace quillary {

namespace {

using Completion = void (^)(NSRunningApplication*, NSError*);

// AppKit calls it on an arbitrary queue.
Completion logFailure(std::string what) {
    return ^(NSRunningApplication*, NSError* error) {
      if (error != nil) {
          MacLog::writeLine("Quillary: " + what + " failed " + MacText::description(error));
      }
    };
}

} // namespace

struct MacWorkspace::Native {
    MacRunningApplications applications;
    std::vector<NotificationToken> observers;
};

MacWorkspace::MacWorkspace() : m_native(std::make_unique<Native>()) {
    NSNotificationCenter* center = [[NSWorkspace sharedWorkspace] notificationCenter];
    const auto forward = [this, center](NSNotificationName name, void (Workspace::*signal)()) {
        m_native->observers.emplace_back(center, name, [this, signal](NSNotification*) {
            Q_EMIT(this->*signal)();
        });
    };
    forward(NSWorkspaceDidLaunchApplicationNotification, &Workspace::applicationLaunched);
    forward(NSWorkspaceDidTerminateApplicationNotification, &Workspace::applicationTerminated);
    forward(NSWorkspaceDidActivateApplicationNotification, &Workspace::applicationActivated);
}

MacWorkspace::~MacWorkspace() = default;

std::vector<RunningApplication> MacWorkspace::runningApplications() const {
    return m_native->applications.list();
}

std::optional<RunningApplication> MacWorkspace::frontmostApplication() const {
    NSRunningApplication* front = [[NSWorkspace sharedWorkspace] frontmostApplication];
    return front == nil ? std::nullopt : std::optional(m_native->applications.describe(front));
}

std::optional<QRectF> MacWorkspace::fullScreenFrame() const {
    return std::nullopt;
}

std::optional<std::string> MacWorkspace::ownBundleIdentifier() const {
    return MacText::plainIfText([[NSBundle mainBundle] bundleIdentifier]);
}

bool MacWorkspace::isApplication(const std::string& path) const {
    return path.ends_with(".app");
}

bool MacWorkspace::exists(const std::string& path) const {
    return [[NSFileManager defaultManager] fileExistsAtPath:MacText::native(path)];
}

std::string MacWorkspace::displayName(const std::string& path) const {
    return MacText::plain([[NSFileManager defaultManager] displayNameAtPath:MacText::native(path)]);
}

QIcon MacWorkspace::icon(const std::string& path) const {
    return MacIcon::icon([[NSWorkspace sharedWorkspace] iconForFile:MacText::native(path)]);
}

void MacWorkspace::openApplication(const std::string& path) {
    [[NSWorkspace sharedWorkspace] openApplicationAtURL:MacText::fileUrl(path)
                                          configuration:[NSWorkspaceOpenConfiguration configuration]
                                      completionHandler:logFailure("opening " + path)];
}

void MacWorkspace::open(const std::string& path) {
    if (![[NSWorkspace sharedWorkspace] openURL:MacText::fileUrl(path)]) {
        MacLog::writeLine("Quillary: opening " + path + " failed");
    }
}

void MacWorkspace::openWith(const std::vector<std::string>& paths, const std::string& application) {
    NSMutableArray<NSURL*>* urls = [NSMutableArray arrayWithCapacity:paths.size()];
    for (const auto& path : paths) {
        [urls addObject:MacText::fileUrl(path)];
    }
    [[NSWorkspace sharedWorkspace] openURLs:urls
                       withApplicationAtURL:MacText::fileUrl(application)
                              configuration:[NSWorkspaceOpenConfiguration configuration]
                          completionHandler:logFailure("opening files with " + application)];
}

void MacWorkspace::reveal(const std::string& path) {
    [[NSWorkspace sharedWorkspace] activateFileViewerSelectingURLs:@[ MacText::fileUrl(path) ]];
}

void MacWorkspace::terminate(const RunningApplication& application) {
    [m_native->applications.find(application.handle) terminate];
}

} // namespace quillary
