#import "platform/macos/MacSingleInstance.h"

#import "platform/macos/MacText.h"
#import "platform/macos/NotificationToken.h"
#include "platform/macos/RunningInstance.h"

#include <QPointer>

#include <functional>
#include <utility>

#import <AppKit/AppKit.h>

/// Handles the Apple event that the system sends when the program is opened again.
@interface QuillaryReopenHandler : NSObject
@end

@implementation QuillaryReopenHandler {
    std::function<void()> m_reopened;
}

- (void)call:(std::function<void()>)reopened {
    m_reopened = std::move(reopened);
}

- (void)handleReopen:(NSAppleEventDescriptor*)event withReplyEvent:(NSAppleEventDescriptor*)reply {
    static_cast<void>(event);
    static_cast<void>(reply);
    if (m_reopened) {
        m_reopened();
    }
}

@end

namespace quillary {

namespace {

NSString* const openedAgain = @"org.quillary.Quillary.openedAgain";

RunningInstance instanceOf(NSRunningApplication* application) {
    NSDate* launched = [application launchDate];
    return {.pid = [application processIdentifier],
            .launched =
                launched == nil ? std::nullopt : std::optional([launched timeIntervalSinceReferenceDate])};
}

} // namespace

struct MacSingleInstance::Native {
    QuillaryReopenHandler* handler = nil;
    NotificationToken launched;
    NotificationToken opened;
};

MacSingleInstance::MacSingleInstance() : m_native(std::make_unique<Native>()) {}

MacSingleInstance::~MacSingleInstance() {
    if (m_native->handler != nil) {
        [[NSAppleEventManager sharedAppleEventManager] removeEventHandlerForEventClass:kCoreEventClass
                                                                            andEventID:kAEReopenApplication];
    }
}

bool MacSingleInstance::claim() {
    NSString* identifier = [[NSBundle mainBundle] bundleIdentifier];
    if (identifier != nil) {
        std::vector<RunningInstance> others;
        for (NSRunningApplication* other in
             [NSRunningApplication runningApplicationsWithBundleIdentifier:identifier]) {
            others.push_back(instanceOf(other));
        }
        if (makesWay(instanceOf([NSRunningApplication currentApplication]), others)) {
            [[NSDistributedNotificationCenter defaultCenter] postNotificationName:openedAgain
                                                                           object:nil
                                                                         userInfo:nil
                                                               deliverImmediately:YES];
            return false;
        }
    }
    m_native->opened = NotificationToken([NSDistributedNotificationCenter defaultCenter], openedAgain,
                                         [this](NSNotification*) { Q_EMIT reopened(); });
    // AppKit installs its handlers while it finishes launching. Ours must replace them afterwards.
    if ([[NSRunningApplication currentApplication] isFinishedLaunching]) {
        followReopening();
    } else {
        m_native->launched = NotificationToken([NSNotificationCenter defaultCenter],
                                               NSApplicationDidFinishLaunchingNotification,
                                               [this](NSNotification*) { followReopening(); });
    }
    return true;
}

void MacSingleInstance::followReopening() {
    const QPointer<MacSingleInstance> self(this);
    m_native->handler = [[QuillaryReopenHandler alloc] init];
    [m_native->handler call:[self] {
        if (self) {
            Q_EMIT self->reopened();
        }
    }];
    [[NSAppleEventManager sharedAppleEventManager] setEventHandler:m_native->handler
                                                       andSelector:@selector(handleReopen:withReplyEvent:)
                                                     forEventClass:kCoreEventClass
                                                        andEventID:kAEReopenApplication];
}

} // namespace quillary
