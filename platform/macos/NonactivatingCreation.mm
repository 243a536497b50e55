#import "platform/macos/NonactivatingCreation.h"

#import <AppKit/AppKit.h>
#import <objc/runtime.h>

namespace quillary {

namespace {

// Initialisers consume `self` and return a retained object.
typedef id (*Initialiser)(id __attribute__((ns_consumed)), SEL, NSRect, NSWindowStyleMask, NSBackingStoreType,
                          BOOL, NSScreen*) __attribute__((ns_returns_retained));

IMP original = nullptr;

SEL initialiserName() {
    return @selector(initWithContentRect:styleMask:backing:defer:screen:);
}

__attribute__((ns_returns_retained)) id initialise(__attribute__((ns_consumed)) id panel, SEL name,
                                                   NSRect rect, NSWindowStyleMask mask,
                                                   NSBackingStoreType backing, BOOL defer, NSScreen* screen) {
    const auto inherited = reinterpret_cast<Initialiser>(original);
    return inherited(panel, name, rect, mask | NSWindowStyleMaskNonactivatingPanel, backing, defer, screen);
}

void setInitialiser(IMP implementation) {
    const Method method = class_getInstanceMethod([NSPanel class], initialiserName());
    class_replaceMethod([NSPanel class], initialiserName(), implementation, method_getTypeEncoding(method));
}

} // namespace

NonactivatingCreation::NonactivatingCreation() {
    original = method_getImplementation(class_getInstanceMethod([NSPanel class], initialiserName()));
    setInitialiser(reinterpret_cast<IMP>(&initialise));
}

NonactivatingCreation::~NonactivatingCreation() {
    setInitialiser(original);
}

} // namespace quillary
